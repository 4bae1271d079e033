// Filters, the chart's time range, and the address that keeps them.
import assert from 'node:assert/strict';

import { kSome, count, rowTexts, current, filter, counted, drag, hashSoon } from './reading.mjs';
import { test } from './run.mjs';

// ---- filters

test('words must all occur, quotes hold a phrase together and a minus excludes', kSome, async (page, report) => {
  await report.open(page);
  const matching = (test) => counted(report.records.filter(({ text }) => test(text)).length, 3000);
  await filter(page, 'DISK full', matching((text) => /disk/i.test(text) && /full/.test(text)));
  await filter(page, '"disk full"', '0 of 3,000');
  assert.equal(await page.locator('#empty').textContent(), 'No record matches the filters.');
  await filter(page, 'of -disk -login', matching((text) => /of/.test(text) && !/disk|login/.test(text)));
});

test('types, severities, originators and components filter together', kSome, async (page, report) => {
  await report.open(page);
  const { records } = report;
  const expect = async (list) => assert.equal(await count(page), counted(list.length, 3000));
  const audits = records.filter(({ type }) => type === 4);
  assert.ok(audits.length > 0);
  await page.getByRole('checkbox', { name: 'audit' }).check();
  await expect(audits);
  await page.getByRole('checkbox', { name: 'application' }).check();
  await expect(records.filter(({ type }) => type === 4 || type === 2));
  await page.getByRole('checkbox', { name: 'information' }).check();
  const informing = records.filter(({ type, level }) => type === 2 && level === 0);
  await expect(informing);
  await page.getByRole('combobox', { name: 'Originator' }).selectOption('12.4');
  const ofOne = informing.filter(({ originator }) => originator === 4);
  await expect(ofOne);
  await page.getByRole('combobox', { name: 'Who' }).fill('SCAN');
  const bySome = ofOne.filter(({ who }) => who === 'scanner');
  assert.ok(bySome.length > 0 && bySome.length < ofOne.length);
  await page.waitForFunction((text) => document.getElementById('count').textContent === text, counted(bySome.length, 3000));
  await page.getByRole('button', { name: 'Clear filters' }).click();
  await expect(records);
  assert.equal(await page.locator('input:checked').count(), 0);
});

// ---- the chart

test('a range that is dragged shows the records in it alone', kSome, async (page, report) => {
  await report.open(page);
  await drag(page, 0.25, 0.5);
  const shown = parseInt((await count(page)).replace(/,/g, ''), 10);
  assert.ok(shown > 600 && shown < 900, await count(page));
  const [, from, to] = /range=(\d+)%2C(\d+)/.exec(await hashSoon(page, 'range')).map(Number);
  assert.equal(shown, report.records.filter(({ time }) => time >= from && time < to).length);
  await page.locator('#grid').focus();
  await page.keyboard.press('Escape');
  assert.equal(await count(page), '3,000 records');
});

test('a click chooses a bar, and its tip tells what it is made of', kSome, async (page, report) => {
  await report.open(page);
  const box = await page.locator('#bars').boundingBox();
  await page.mouse.move(box.x + box.width * 0.3, box.y + 60);
  const total = parseInt(await page.locator('#tip > div').textContent(), 10);
  const parts = await page.locator('#tip dd').allTextContents();
  assert.ok(total > 0);
  assert.equal(parts.reduce((sum, part) => sum + Number(part), 0), total);
  await page.mouse.click(box.x + box.width * 0.3, box.y + 60);
  assert.match(await count(page), new RegExp(`^${total} of 3,000 records from `));
});

test('a chosen range can be moved, and its ends dragged', kSome, async (page, report) => {
  await report.open(page);
  const value = (id) => page.locator(id).getAttribute('aria-valuenow').then(Number);
  await drag(page, 0.2, 0.4);
  const before = [await value('#handle-from'), await value('#handle-to')];
  await drag(page, 0.3, 0.5);
  const after = [await value('#handle-from'), await value('#handle-to')];
  assert.equal(after[1] - after[0], before[1] - before[0]);
  assert.ok(after[0] > before[0]);
  await drag(page, 0.4, 0.9);
  await drag(page, 0.9, 0.7);
  assert.ok(await value('#handle-to') !== after[1]);
});

test('the range follows the keyboard', kSome, async (page, report) => {
  await report.open(page);
  const from = page.getByRole('slider', { name: 'Begin of the time range' });
  const to = page.getByRole('slider', { name: 'End of the time range' });
  const [first, last] = [await from.getAttribute('aria-valuenow'), await to.getAttribute('aria-valuenow')].map(Number);
  await from.focus();
  await page.keyboard.press('ArrowRight');
  const step = Number(await from.getAttribute('aria-valuenow')) - first;
  assert.ok(step > 0);
  await page.keyboard.press('PageUp');
  assert.equal(Number(await from.getAttribute('aria-valuenow')), first + 11 * step);
  await to.focus();
  await page.keyboard.press('ArrowLeft');
  assert.equal(Number(await to.getAttribute('aria-valuenow')), last - step);
  assert.match(await to.getAttribute('aria-valuetext'), /^2026-03-01 \d\d:\d\d/);
  const inside = report.records.filter(({ time }) => time >= first + 11 * step && time < last - step).length;
  assert.ok((await count(page)).startsWith(counted(inside, 3000)));
  await page.keyboard.press('End');
  await from.focus();
  await page.keyboard.press('Home');
  assert.equal(await count(page), '3,000 records');
});

test('the chart is stacked by type or by severity', kSome, async (page, report) => {
  await report.open(page);
  assert.deepEqual(await page.locator('#legend li').allTextContents(),
    ['fatal', 'severe', 'error', 'warning', 'information', 'debug and diagnostic', 'none']);
  const bars = await page.locator('#bars .bar').count();
  assert.ok(bars > 100);
  await page.getByRole('combobox', { name: 'Stacked by' }).selectOption('type');
  assert.deepEqual(await page.locator('#legend li').allTextContents(), ['debug', 'diagnostic', 'application', 'audit']);
  assert.notEqual(await page.locator('#bars .bar').count(), bars);
});

test('the chart zooms into the range and out again', kSome, async (page, report) => {
  await report.open(page);
  const from = page.locator('#handle-from');
  const whole = await from.getAttribute('aria-valuemin');
  await drag(page, 0.5, 0.6);
  const begin = await from.getAttribute('aria-valuenow');
  await page.getByRole('button', { name: 'Zoom in' }).click();
  assert.equal(await from.getAttribute('aria-valuemin'), begin);
  assert.equal(await count(page), '3,000 records');
  await page.getByRole('button', { name: 'Whole time' }).click();
  assert.equal(await from.getAttribute('aria-valuemin'), whole);
});

// ---- the address

test('the address brings filter, range, order, zone and the open record back', kSome, async (page, report) => {
  await report.open(page);
  await filter(page, 'volume', counted(report.records.filter(({ text }) => text.includes('volume')).length, 3000));
  await page.getByRole('checkbox', { name: 'information' }).check();
  await drag(page, 0.2, 0.8);
  await page.getByRole('columnheader', { name: 'Who' }).getByRole('button').click();
  await page.getByRole('combobox', { name: 'Stacked by' }).selectOption('type');
  await page.getByRole('combobox', { name: 'Times in' }).selectOption('UTC');
  await page.locator('[aria-rowindex="5"]').click();
  const look = async () => ({
    count: await count(page), rows: await rowTexts(page), record: await page.locator('#details h2').textContent(),
    text: await page.inputValue('#text'), stack: await page.inputValue('#stack'), zone: await page.inputValue('#zone'),
    sort: await page.getByRole('columnheader', { name: 'Who' }).getAttribute('aria-sort'),
    checked: await page.locator('input:checked').evaluateAll((boxes) => boxes.map((box) => box.value)),
    range: await page.locator('#handle-from').getAttribute('aria-valuenow'), current: await current(page),
  });
  const before = await look();
  const hash = await hashSoon(page, 'record');
  await report.open(page, hash);
  assert.deepEqual(await look(), before);
});

test('another address in the same page is followed', kSome, async (page, report) => {
  await report.open(page, '#text=disk&record=12');
  assert.equal(await page.inputValue('#text'), 'disk');
  await page.evaluate(() => { location.hash = '#types=4'; });
  await page.waitForFunction(() => document.getElementById('text').value === '');
  assert.ok(await page.getByRole('checkbox', { name: 'audit' }).isChecked());
  assert.ok(await page.locator('#details').isHidden());
});

test('an open record far down is scrolled to', kSome, async (page, report) => {
  await report.open(page, '#record=2500');
  assert.equal(await current(page), '2,500');
  assert.ok(await page.locator('.row[aria-selected="true"]').isVisible());
});

test('an address that does not fit does no harm', kSome, async (page, report) => {
  await report.open(page, '#range=a,b&zoom=9,1&record=99999999&sort=__proto__&types=<b>,9&severity=x&zone=77&stack=z'
    + '&originator=1.1&text=%3Cimg%20src=x%20onerror=alert(1)%3E');
  assert.equal(await count(page), '0 of 3,000 records');
  await page.keyboard.press('/');
  await page.keyboard.press('Escape');
  assert.equal(await count(page), '3,000 records');
});
