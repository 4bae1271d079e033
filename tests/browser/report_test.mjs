// The HTML report in a browser: what a reader sees of it and does with it.
import assert from 'node:assert/strict';
import { readFileSync, writeFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';

import { leastContrast } from './contrast.mjs';
import { runAll, test, wide } from './run.mjs';

const kMany = '100000';
const kSome = '3000';

const count = (page) => page.locator('#count').textContent();
const rowTexts = (page) => page.locator('#canvas .row:visible .text').allTextContents();
const current = (page) => page.locator('.row[aria-selected="true"] .record').textContent();
const hashOf = (page) => page.evaluate(() => location.hash);

// Types into the text filter, and waits for its effect.
async function filter(page, text, expected) {
  await page.fill('#text', text);
  await page.waitForFunction((wanted) => document.getElementById('count').textContent.startsWith(wanted), expected);
}

const counted = (records, total) => (records === total ? `${total.toLocaleString('en')} records`
  : `${records.toLocaleString('en')} of ${total.toLocaleString('en')} records`);

// Drags on the chart between two parts (0 to 1) of its width.
async function drag(page, from, to) {
  const box = await page.locator('#bars').boundingBox();
  const x = (part) => box.x + 52 + part * (box.width - 64);
  await page.mouse.move(x(from), box.y + 60);
  await page.mouse.down();
  await page.mouse.move(x((from + to) / 2), box.y + 60);
  await page.mouse.move(x(to), box.y + 60);
  await page.mouse.up();
}

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

async function hashSoon(page, name) {
  await page.waitForFunction((part) => location.hash.includes(`${part}=`), name);
  return hashOf(page);
}

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

await runAll();
