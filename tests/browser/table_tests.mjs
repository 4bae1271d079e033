// The table and the details of a record, with pointer and keyboard.
import assert from 'node:assert/strict';

import { kMany, kSome, count, rowTexts, current, filter, counted } from './reading.mjs';
import { test, wide } from './run.mjs';

// ---- many records

test('a hundred thousand records are there within seconds', kMany, async (page, report) => {
  const start = performance.now();
  await report.open(page);
  await page.waitForSelector('#canvas .row .text:has-text("step 0 of the nightly run")');
  const toFirstRow = Math.round(performance.now() - start);
  const inPage = await page.evaluate(() => Math.round(performance.now()));
  console.log(`  first row after ${toFirstRow} ms (the page's own clock: ${inPage} ms)`);
  assert.ok(toFirstRow < 15_000, `${toFirstRow} ms`);
  assert.equal(await count(page), '100,000 records');
  assert.equal(await page.locator('#grid').getAttribute('aria-rowcount'), '100001');
  assert.ok(await page.locator('#canvas .row').count() < 100);
});

test('filtering a hundred thousand records takes no time that is felt', kMany, async (page, report) => {
  await report.open(page);
  const expected = report.records.filter(({ text }) => text.includes('volume 7 ')).length;
  assert.ok(expected > 100);
  const start = performance.now();
  await filter(page, '"volume 7 "', counted(expected, 100_000));
  const took = Math.round(performance.now() - start);
  console.log(`  filtered after ${took} ms`);
  assert.ok(took < 5_000, `${took} ms`);
  for (const text of await rowTexts(page)) assert.match(text, /volume 7 /);
});

test('sorting a hundred thousand records takes seconds at most', kMany, async (page, report) => {
  await report.open(page);
  const first = report.records.map(({ text }) => text.toLowerCase()).reduce((a, b) => (a < b ? a : b));
  const start = performance.now();
  await page.click('.head .text button');
  await page.waitForFunction((text) => document.querySelector('[aria-rowindex="2"] .text')?.textContent === text, first);
  const took = Math.round(performance.now() - start);
  console.log(`  sorted by text after ${took} ms`);
  assert.ok(took < 8_000, `${took} ms`);
});

test('the last of a hundred thousand records can be scrolled to', kMany, async (page, report) => {
  await report.open(page);
  await page.evaluate(() => { document.getElementById('viewport').scrollTop = 1e9; });
  await page.waitForSelector('[aria-rowindex="100001"]');
  assert.equal(await page.locator('[aria-rowindex="100001"] .record').textContent(), '100,000');
});

// ---- the table

test('a heading sorts, and sorts the other way round when it is pressed again', kSome, async (page, report) => {
  await report.open(page);
  const texts = report.records.map(({ text }) => text).sort();
  const heading = page.getByRole('columnheader', { name: 'Text' });
  await heading.getByRole('button').click();
  assert.equal(await heading.getAttribute('aria-sort'), 'ascending');
  assert.equal(await page.locator('[aria-rowindex="2"] .text').textContent(), texts[0]);
  await heading.getByRole('button').click();
  assert.equal(await heading.getAttribute('aria-sort'), 'descending');
  assert.equal(await page.locator('[aria-rowindex="2"] .text').textContent(), texts.at(-1));
  await page.getByRole('columnheader', { name: 'Severity' }).getByRole('button').click();
  assert.equal(await page.locator('[aria-rowindex="2"] .grade').textContent(), '');
  await page.getByRole('columnheader', { name: 'Severity' }).getByRole('button').click();
  assert.equal(await page.locator('[aria-rowindex="2"] .grade').textContent(), 'fatal');
});

test('a click opens the details of a record', kSome, async (page, report) => {
  await report.open(page);
  await page.locator('[aria-rowindex="4"]').click();
  const fields = await page.locator('#details dl').evaluate((list) => Object.fromEntries(
    [...list.querySelectorAll('dt')].map((term) => [term.textContent, term.nextSibling.textContent])));
  const [, , third] = report.records;
  assert.equal(await page.locator('#details h2').textContent(), 'Record 3');
  assert.equal(await page.locator('.full-text').textContent(), third.text);
  assert.equal(fields.Time, '2026-03-01 13:00:01.798  Europe/Berlin UTC+01:00');
  assert.equal(fields.UTC, '2026-03-01 12:00:01.798');
  assert.equal(fields.Who, third.who);
  assert.equal(fields.Severity, '0 (information)');
  assert.equal(fields.Product, '12 (shop)');
  assert.equal(fields['Sequence number'], '3');
  assert.equal(fields.Process, '4242');
  assert.equal(fields.Thread, '702');
  assert.equal(fields.Host, 'nightingale');
  assert.equal(fields['Log file'], 'C:\\logs\\zantlog_12_3_20260301.log');
  assert.equal(fields['At byte'], '280');
  await page.getByRole('button', { name: 'Next record' }).click();
  assert.equal(await page.locator('#details h2').textContent(), 'Record 4');
  await page.getByRole('button', { name: 'Close the details' }).click();
  assert.ok(await page.locator('#details').isHidden());
});

test('everything can be reached with the keyboard', kSome, async (page, report) => {
  await report.open(page);
  const press = (key) => page.keyboard.press(key);
  await press('/');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'text');
  assert.equal(await page.inputValue('#text'), '');
  await press('ArrowDown');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'grid');
  await press('ArrowDown');
  assert.equal(await current(page), '1');
  await press('ArrowDown');
  assert.equal(await current(page), '2');
  await press('PageDown');
  assert.ok(Number(await current(page)) > 5);
  const active = await page.locator('#grid').getAttribute('aria-activedescendant');
  assert.equal(await page.locator(`#${active}`).getAttribute('aria-selected'), 'true');
  await press('End');
  assert.equal(await current(page), '3,000');
  await press('PageUp');
  await press('Home');
  assert.equal(await current(page), '1');
  await press('ArrowUp');
  assert.equal(await current(page), '1');
  await press('Enter');
  assert.equal(await page.locator('#details h2').textContent(), 'Record 1');
  await press('ArrowDown');
  assert.equal(await page.locator('#details h2').textContent(), 'Record 2');
  await press('Escape');
  assert.ok(await page.locator('#details').isHidden());
  assert.equal(await page.evaluate(() => document.activeElement.id), 'grid');
  await press('/');
  await page.keyboard.type('disk/');
  await press('Escape');
  assert.equal(await page.inputValue('#text'), '');
  await press('Escape');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'grid');
});

test('what has the focus is seen to have it', kSome, async (page, report) => {
  await report.open(page);
  const seen = [];
  for (let i = 0; i < 30; ++i) {
    await page.keyboard.press('Tab');
    const [name, isSeen] = await page.evaluate(() => {
      const at = document.activeElement;
      const looks = [at, at.parentElement].some((one) => parseFloat(getComputedStyle(one).outlineWidth) >= 2
        && getComputedStyle(one).outlineStyle !== 'none');
      return [at.id || at.value || at.textContent, at === document.body || looks];
    });
    assert.ok(isSeen, name);
    seen.push(name);
  }
  for (const name of ['text', 'who', 'originator', 'handle-from', 'handle-to', 'grid', 'zone', 'stack']) {
    assert.ok(seen.includes(name), `${name} in ${seen}`);
  }
});

test('times are shown in the zone that is chosen', kSome, async (page, report) => {
  await report.open(page);
  const time = () => page.locator('[aria-rowindex="2"] .time').textContent();
  assert.equal(await time(), '2026-03-01 13:00:00.000');
  await page.getByRole('combobox', { name: 'Times in' }).selectOption('UTC');
  assert.equal(await time(), '2026-03-01 12:00:00.000');
  await page.getByRole('combobox', { name: 'Times in' }).selectOption('own');
  assert.equal(await time(), '2026-03-01 17:30:00.000');
}, { ...wide, timezoneId: 'Asia/Kolkata' });
