// How the browser tests use the page, and what they read off it.

export const kMany = '100000';
export const kSome = '3000';

export const count = (page) => page.locator('#count').textContent();
export const rowTexts = (page) => page.locator('#canvas .row:visible .text').allTextContents();
export const current = (page) => page.locator('.row[aria-selected="true"] .record').textContent();
export const hashOf = (page) => page.evaluate(() => location.hash);

// Types into the text filter, and waits for its effect.
export async function filter(page, text, expected) {
  await page.fill('#text', text);
  await page.waitForFunction((wanted) => document.getElementById('count').textContent.startsWith(wanted), expected);
}

export const counted = (records, total) => (records === total ? `${total.toLocaleString('en')} records`
  : `${records.toLocaleString('en')} of ${total.toLocaleString('en')} records`);

// Drags on the chart between two parts (0 to 1) of its width.
export async function drag(page, from, to) {
  const box = await page.locator('#bars').boundingBox();
  const x = (part) => box.x + 52 + part * (box.width - 64);
  await page.mouse.move(x(from), box.y + 60);
  await page.mouse.down();
  await page.mouse.move(x((from + to) / 2), box.y + 60);
  await page.mouse.move(x(to), box.y + 60);
  await page.mouse.up();
}

export async function hashSoon(page, name) {
  await page.waitForFunction((part) => location.hash.includes(`${part}=`), name);
  return hashOf(page);
}
