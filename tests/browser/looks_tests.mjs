// Hostile texts, how the page looks, and unusual reports.
import assert from 'node:assert/strict';
import { readFileSync, writeFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';

import { leastContrast } from './contrast.mjs';
import { kSome, count, rowTexts, filter } from './reading.mjs';
import { test, wide } from './run.mjs';

// ---- hostile texts

test('hostile texts are shown and do nothing', 'hostile', async (page, report) => {
  await report.open(page);
  assert.equal(await count(page), '8 records');
  const texts = await rowTexts(page);
  assert.equal(texts[0], '</script><script>window.attacked = 1</script>');
  assert.equal(texts[1], '<!--<script>');
  assert.equal(texts[2], '<img src=x onerror="window.attacked = 2">');
  assert.equal(texts[3], ']]>&lt;b&gt;"\'`${window.attacked = 3}');
  assert.equal(texts[4], 'right \u27e8202E\u27e9to left, zero\u27e8200B\u27e9width, bell \u27e8BEL\u27e9, line\u21b5line');
  assert.equal(texts[5], 'not UTF-8: \ufffd\ufffd \ufffd\ufffd\ufffd');
  assert.equal(texts[6], 'שלום \u{1f4be} \u27e82028\u27e9 end');
  assert.equal(await page.title(), '</title><script>window.attacked = 4</script>');
  for (let i = 0; i < 8; ++i) {
    await page.locator(`[aria-rowindex="${i + 2}"]`).click();
    assert.equal(await page.locator('#details h2').textContent(), `Record ${i + 1}`);
  }
  assert.equal(await page.evaluate(() => window.attacked), undefined);
  assert.equal(await page.locator('img, b, i, main script, iframe, main a').count(), 0);
});

test('a text of a megabyte is there to its end', 'hostile', async (page, report) => {
  await report.open(page, '#record=8');
  assert.ok((await page.locator('.full-text').textContent()).length < 110_000);
  await page.getByRole('button', { name: 'Show all 1,048,581 characters' }).click();
  assert.ok((await page.locator('.full-text').textContent()).endsWith('xxx<END>'));
});

test('nothing but the page\'s own script runs, and markup cannot be made of texts', kSome, async (page, report) => {
  await report.open(page);
  const refusals = await page.evaluate(() => {
    const refused = [];
    const script = document.createElement('script');
    try {
      script.textContent = 'window.attacked = 1';
      document.body.append(script);
    } catch {
      refused.push('script');
    }
    try { document.body.innerHTML += '<b>x</b>'; } catch { refused.push('markup'); }
    return [...refused, window.attacked ?? 'nothing ran'];
  });
  assert.deepEqual(refusals.filter((refusal) => refusal !== 'script'), ['markup', 'nothing ran']);
});

// ---- looks

async function colours(browserPage, png) {
  await browserPage.goto('about:blank');
  return browserPage.evaluate(async (base64) => {
    const image = new Image();
    image.src = `data:image/png;base64,${base64}`;
    await image.decode();
    const canvas = new OffscreenCanvas(image.width, image.height).getContext('2d');
    canvas.drawImage(image, 0, 0);
    return new Set(new Uint32Array(canvas.getImageData(0, 0, image.width, image.height).data.buffer)).size;
  }, png.toString('base64'));
}

test('a screenshot is not blank', kSome, async (page, report) => {
  await report.open(page);
  assert.ok(await colours(page, await page.screenshot()) > 50);
});

const brightness = (page) => page.evaluate(() => parseInt(getComputedStyle(document.body).backgroundColor.match(/\d+/)[0], 10));

for (const colorScheme of ['light', 'dark']) {
  test(`texts stand out in the ${colorScheme} scheme`, kSome, async (page, report) => {
    for (const severity of ['s0', 's1', 's2', 's3', 's4', 'l1']) {
      await report.open(page, `#severity=${severity}&record=1`);
      const least = await leastContrast(page);
      assert.ok(least.ratio >= 4.5, `${severity}: ${JSON.stringify(least)}`);
    }
    const background = await brightness(page);
    assert.ok(colorScheme === 'dark' ? background < 60 : background > 200, String(background));
  }, { ...wide, colorScheme });
}

test('a narrow screen shows all without scrolling sideways', kSome, async (page, report) => {
  await report.open(page);
  assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
  const box = await page.locator('[aria-rowindex="2"] .text').boundingBox();
  assert.ok(box.width > 250);
  await page.locator('[aria-rowindex="3"]').click();
  assert.ok(await page.locator('#details').isVisible());
}, { viewport: { width: 390, height: 800 }, timezoneId: 'UTC' });

test('on paper the records are a plain table', kSome, async (page, report) => {
  await report.open(page);
  await page.emulateMedia({ media: 'print' });
  await page.evaluate(() => window.dispatchEvent(new Event('beforeprint')));
  assert.equal(await page.locator('#print tbody tr').count(), 2000);
  assert.equal(await page.locator('#print p').textContent(), 'The first 2,000 of 3,000 records.');
  assert.ok(await page.locator('#print').isVisible());
  assert.ok(await page.locator('#grid').isHidden());
  await page.evaluate(() => window.dispatchEvent(new Event('afterprint')));
  assert.equal(await page.locator('#print tr').count(), 0);
});

// ---- unusual reports

test('a report without records says so', '0', async (page, report) => {
  await report.open(page);
  assert.equal(await count(page), '0 records');
  assert.equal(await page.locator('#empty').textContent(), 'No record was selected.');
  assert.ok(await page.locator('#notice').isHidden());
  for (const key of ['ArrowDown', 'End', 'Enter', 'PageUp']) await page.locator('#grid').press(key);
});

test('one record is a report too', '1', async (page, report) => {
  await report.open(page);
  assert.equal(await count(page), '1 record');
  assert.equal(await page.locator('#bars .bar').count(), 1);
});

test('a page that was cut short shows what it has, and says that it is incomplete', kSome, async (page, report) => {
  const path = report.path.replace('.html', '-cut.html');
  const whole = readFileSync(report.path);
  writeFileSync(path, whole.subarray(0, whole.indexOf('id="end"')));
  await page.goto(pathToFileURL(path).href);
  await page.waitForSelector('html[data-ready]', { state: 'attached' });
  assert.equal(await count(page), '3,000 records');
  assert.match(await page.locator('#notice').textContent(), /incomplete/);
  writeFileSync(path, whole.subarray(0, whole.indexOf('id="end"') - 5000));
  await page.reload();
  await page.waitForSelector('html[data-ready]', { state: 'attached' });
  assert.ok(await page.locator('#notice').isVisible());
});
