// What the browser tests need: pages to load, a browser to load them in, and counts in the line that
// scripts/test.sh adds up.
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdirSync, openSync, closeSync, readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { parseArgs } from 'node:util';

const { values: options } = parseArgs({ options: {
  sample: { type: 'string' }, driver: { type: 'string' }, folder: { type: 'string' }, only: { type: 'string' },
} });

const tests = [];
export const wide = { viewport: { width: 1400, height: 850 }, timezoneId: 'UTC' };

// `options` are those of a new page of the browser; `run` gets the page and its Report.
export function test(name, sample, run, pageOptions = wide) {
  tests.push({ name, sample, run, pageOptions });
}

// A page that report_sample wrote.
class Report {
  constructor(what) {
    mkdirSync(options.folder, { recursive: true });
    this.path = join(options.folder, `${what}.html`);
    const file = openSync(this.path, 'w');
    execFileSync(options.sample, [what], { stdio: ['ignore', file, 'inherit'] });
    closeSync(file);
    this.address = pathToFileURL(this.path).href;
  }

  // The records as the page's data blocks hold them, row by row.
  get records() {
    return (this.read ??= [...readFileSync(this.path, 'utf8').matchAll(/class="records">(.*)<\/script>/g)]
      .flatMap(([, json]) => rowsOf(JSON.parse(json))));
  }

  async open(page, hash = '') {
    await page.goto('about:blank');
    await page.goto(this.address + hash);
    await page.waitForSelector('html[data-ready]', { timeout: 60_000, state: 'attached' });
  }
}

function rowsOf(block) {
  const at = (name, row) => (Array.isArray(block[name]) ? block[name][row] : block[name]);
  return Array.from({ length: block.records }, (_, row) => ({
    time: at('time', row), type: at('type', row), level: at('level', row),
    originator: block.originators[at('originator', row)][1],
    text: block.texts[at('text', row)], who: block.texts[at('who', row)],
  }));
}

async function startBrowser() {
  assert.ok(options.driver, 'the driver of the browser is missing: run scripts/setup.sh');
  const { chromium } = createRequire(join(options.driver, 'package.json'))('playwright-core');
  const executablePath = execFileSync('sh', ['-c', 'command -v chromium'], { encoding: 'utf8' }).trim();
  const isRoot = process.getuid() === 0; // for whom Chromium's sandbox does not work
  return chromium.launch({ executablePath, args: isRoot ? ['--no-sandbox'] : [] });
}

async function runOne(browser, reports, { name, sample, run, pageOptions }) {
  const page = await browser.newPage(pageOptions);
  const errors = [];
  page.on('pageerror', (error) => errors.push(error.stack));
  page.on('dialog', (dialog) => { errors.push(`dialog: ${dialog.message()}`); dialog.dismiss(); });
  page.on('request', (request) => {
    if (!/^(file|data|about):/.test(request.url())) errors.push(`request: ${request.url()}`);
  });
  try {
    if (!reports.has(sample)) reports.set(sample, new Report(sample));
    await run(page, reports.get(sample));
    assert.deepEqual(errors, []);
    console.log(`passed: ${name}`);
    return true;
  } catch (error) {
    console.log(`FAILED: ${name}\n${error.stack}`);
    await page.screenshot({ path: join(options.folder, `failed-${name.replace(/\W+/g, '-')}.png`) }).catch(() => {});
    return false;
  } finally {
    await page.close();
  }
}

export async function runAll() {
  let passed = 0;
  const wanted = tests.filter(({ name }) => !options.only || name.includes(options.only));
  try {
    const browser = await startBrowser();
    console.log(`Chromium ${browser.version()}`);
    const reports = new Map();
    for (const one of wanted) passed += (await runOne(browser, reports, one)) ? 1 : 0;
    await browser.close();
  } catch (error) {
    console.log(`the browser does not run: ${error.stack}`);
  }
  console.log(`zantlog-tests: ${passed} passed, ${wanted.length - passed} failed, 0 skipped`);
  process.exit(passed === wanted.length && passed > 0 ? 0 : 1);
}
