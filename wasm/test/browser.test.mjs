// In a real browser: a page under a strict policy, a page that is a file, and a project that has the package.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { cpSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { createServer } from 'node:http';
import { createRequire } from 'node:module';
import { tmpdir } from 'node:os';
import { extname, join, resolve } from 'node:path';
import { after, before, test } from 'node:test';
import { built } from './support.mjs';

const { chromium } = createRequire(resolve(process.env.KX_WEB_TOOLS ?? 'build/web/tools', 'package.json'))('playwright-core');
const POLICY = "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; style-src 'self'; connect-src 'self'; img-src 'self'";
const KINDS = { '.js': 'text/javascript', '.html': 'text/html', '.css': 'text/css', '.wasm': 'application/wasm' };

const folder = mkdtempSync(join(tmpdir(), 'kxcharts-'));
const asked = [];
let browser, server, base;

/** What a page says about itself: faults, refusals of the policy, requests to anyone else. */
async function openPage(options, address) {
  const page = await browser.newPage(options);
  page.faults = [];
  page.on('console', (message) => { if (message.type() === 'error') page.faults.push(message.text()); });
  page.on('pageerror', (error) => page.faults.push(String(error)));
  page.on('request', (request) => asked.push(request.url()));
  await page.goto(address);
  return page;
}

async function openStrict(options = {}) {
  const page = await openPage({ viewport: { width: 800, height: 600 }, ...options }, `${base}/strict.html`);
  await page.waitForFunction(() => globalThis.shown?.view.framesDrawn > 0);
  return page;
}

/** @return a sum over the canvas's pixels, and how many are not its ground */
function lookAt(page, name = 'view') {
  return page.evaluate((which) => {
    const { canvas } = globalThis.shown[which];
    const { data } = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
    let sum = 0, marks = 0;
    for (let i = 0; i < data.length; i += 4) {
      const value = data[i] + 256 * data[i + 1] + 65536 * data[i + 2];
      sum = (Math.imul(sum, 31) + value) | 0;
      if (value !== 0xffffff) ++marks;
    }
    return { sum, marks, width: canvas.width, height: canvas.height };
  }, name);
}

const rest = (page) => page.evaluate(() => new Promise((done) => setTimeout(done, 900)));

before(async () => {
  cpSync('wasm/test/pages', folder, { recursive: true });
  cpSync('wasm/js', join(folder, 'js'), { recursive: true });
  cpSync(join(built, 'kxcharts.wasm'), join(folder, 'kxcharts.wasm'));
  server = createServer((request, response) => {
    if (request.url === '/favicon.ico') {
      response.writeHead(204);
      response.end();
      return;
    }
    try {
      const file = join(folder, new URL(request.url, 'http://x').pathname);
      const bytes = readFileSync(file);
      response.writeHead(200, { 'content-type': KINDS[extname(file)] ?? 'text/plain', 'content-security-policy': POLICY });
      response.end(bytes);
    } catch {
      response.writeHead(404);
      response.end();
    }
  });
  await new Promise((done) => server.listen(0, '127.0.0.1', done));
  base = `http://127.0.0.1:${server.address().port}`;
  browser = await chromium.launch({
    executablePath: process.env.KX_CHROMIUM ?? '/usr/bin/chromium',
    args: ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
      '--disable-component-update', '--disable-sync'],
  });
});

after(async () => {
  await browser?.close();
  server?.close();
  rmSync(folder, { recursive: true, force: true });
});

test('pointer, wheel and keys change a chart, and nothing moves at rest', async () => {
  const page = await openStrict();
  const first = await lookAt(page);
  assert.ok(first.marks > 20000, `${first.marks} pixels are drawn`);

  // 1. What is pointed at says what it is, and stands out in the other chart.
  await page.mouse.move(120, 300);
  await rest(page);
  const hovered = await lookAt(page);
  assert.notEqual(hovered.sum, first.sum, 'a hint shows');

  // 2. At rest no frame is drawn, and none is waited for.
  const frames = await page.evaluate(() => globalThis.shown.view.framesDrawn);
  await rest(page);
  assert.equal(await page.evaluate(() => globalThis.shown.view.framesDrawn), frames, 'no frame at rest');

  // 3. A click on a bar reaches the page, with what was clicked.
  await page.mouse.click(120, 300);
  const clicked = await page.evaluate(() => globalThis.shown.clicked);
  assert.ok(clicked.length > 0, 'the click is told');
  assert.equal(clicked[0].event, 'click');

  // 4. A wheel with Ctrl zooms along the categories or is left to the page; new data is drawn either way.
  await page.mouse.move(5, 590);
  await rest(page);
  const before = await lookAt(page);
  await page.evaluate(() => globalThis.shown.table.replaceMeasure(0, { numbers: [100, 900, 200, 800] }));
  await rest(page);
  assert.notEqual((await lookAt(page)).sum, before.sum, 'new data shows');

  // 5. Tab reaches the chart, and its keys walk over the marks.
  await page.evaluate(() => globalThis.shown.bars.element.focus());
  const unlit = await lookAt(page);
  await page.keyboard.press('ArrowRight');
  await rest(page);
  assert.notEqual((await lookAt(page)).sum, unlit.sum, 'a key lights a mark');
  assert.deepEqual(page.faults, []);
  await page.close();
});

test('a wheel scrolls what is larger than its place', async () => {
  const page = await openStrict();
  await page.evaluate(() => {
    const texts = Array.from({ length: 300 }, (_, i) => `Row ${i}`);
    globalThis.shown.bars.document = { type: 'KXValueListChart' };
    globalThis.shown.bars.show({ dimensions: [{ label: 'Row', texts }], measures: [{ label: 'Value', numbers: texts.map((_, i) => i) }] });
  });
  await rest(page);
  const before = await lookAt(page);
  await page.mouse.move(120, 250);
  await rest(page);
  const hovered = await lookAt(page);
  await page.mouse.wheel(0, 400);
  await rest(page);
  assert.notEqual((await lookAt(page)).sum, hovered.sum, 'the list scrolled');
  assert.ok(before.marks > 0);
  assert.deepEqual(page.faults, []);
  await page.close();
});

for (const scale of [1, 1.5, 2]) {
  test(`the canvas has a device's pixels at scale ${scale}, and follows its element`, async () => {
    const page = await openStrict({ deviceScaleFactor: scale });
    let shown = await lookAt(page);
    assert.deepEqual([shown.width, shown.height], [600 * scale, 400 * scale]);
    await page.evaluate(() => { globalThis.shown.view.element.style.width = '500px'; });
    await rest(page);
    shown = await lookAt(page);
    assert.equal(shown.width, 500 * scale);
    assert.ok(shown.marks > 10000 * scale, 'it is drawn anew');
    assert.deepEqual(page.faults, []);
    await page.close();
  });
}

test('a finger taps, and what is out of sight is not drawn', async () => {
  const page = await openStrict({ hasTouch: true });
  await page.touchscreen.tap(120, 300);
  await rest(page);
  assert.ok((await page.evaluate(() => globalThis.shown.clicked.length)) > 0, 'the tap is a click');
  const far = await page.evaluate(() => globalThis.shown.far.framesDrawn);
  assert.equal(far, 0, `${far} frames out of sight`);
  await page.evaluate(() => globalThis.shown.far.element.scrollIntoView());
  await rest(page);
  assert.ok((await lookAt(page, 'far')).marks > 1000, 'it is drawn when it comes into sight');
  assert.deepEqual(page.faults, []);
  await page.close();
});

test('a hundred thousand points are drawn, and drawn anew', async () => {
  const page = await openStrict();
  const draw = () => page.evaluate(() => {
    const count = 100000, random = () => Float64Array.from({ length: count }, () => 100 * Math.random());
    const texts = Array.from({ length: count }, (_, i) => String(i));
    globalThis.shown.bars.document = { type: 'KXScatterChart' };
    globalThis.shown.bars.show({
      dimensions: [{ label: 'Point', texts }], measures: [{ label: 'x', numbers: random() }, { label: 'y', numbers: random() }],
    });
  });
  await draw();
  await rest(page);
  const first = await lookAt(page);
  assert.ok(first.marks > 60000, `${first.marks} pixels`);
  await draw();
  await rest(page);
  assert.notEqual((await lookAt(page)).sum, first.sum);
  assert.deepEqual(page.faults, []);
  await page.close();
});

test('a font that arrives late is measured', async () => {
  const page = await openStrict();
  const before = await lookAt(page);
  await page.evaluate(() => {
    globalThis.shown.charts.ruler.family = 'monospace';
    document.fonts.dispatchEvent(new Event('loadingdone'));
  });
  await rest(page);
  assert.notEqual((await lookAt(page)).sum, before.sum);
  await page.close();
});

test('those who do not see it hear names and values', async () => {
  const page = await openStrict();
  const figure = page.getByRole('figure', { name: 'Deliveries by region, bar chart' });
  assert.equal(await figure.count(), 1);
  const cells = await figure.getByRole('cell').allTextContents();
  assert.deepEqual(cells.slice(0, 3), ['North', '940', '60']);
  await page.close();
});

test('views that come and go leave nothing', async () => {
  const page = await openStrict();
  const left = await page.evaluate(() => {
    const { charts, table } = globalThis.shown;
    const place = document.getElementById('two');
    const nodes = document.querySelectorAll('*').length;
    for (let i = 0; i < 50; ++i) {
      const view = charts.createView(place);
      view.addChart({ document: { type: 'KXBarChart' }, data: table });
      view.destroy();
    }
    return [charts.views.size, document.querySelectorAll('*').length - nodes];
  });
  assert.deepEqual(left, [2, 0]);
  await page.close();
});

test('an edited document is shown beside its keys', async () => {
  const page = await openPage({ viewport: { width: 1100, height: 800 } }, `file://${resolve(built, 'documents.html')}`);
  await page.locator('section').first().scrollIntoViewIfNeeded();
  await page.waitForFunction(() => document.querySelector('section.live canvas'));
  await page.locator('section.live summary').first().click();
  const editor = page.locator('section.live textarea').first();
  const document = JSON.parse(await editor.inputValue());
  await editor.fill(JSON.stringify({ ...document, m_titleValue: 'Edited by hand' }));
  await page.getByRole('figure', { name: /^Edited by hand/ }).waitFor({ state: 'attached' });
  await editor.fill('{');
  assert.notEqual(await page.locator('section.live output').first().textContent(), '');
  assert.deepEqual(page.faults, []);
  await page.close();
});

test('the gallery works from a file and turns live', async () => {
  const page = await openPage({ viewport: { width: 1100, height: 800 } }, `file://${resolve(built, 'gallery.html')}`);
  await page.waitForFunction(() => document.querySelector('section.live canvas'));
  assert.ok((await page.locator('section img').count()) > 100, 'pictures stand first');
  await page.selectOption('#theme', 'dark');
  await rest(page);
  await page.screenshot({ path: join(built, 'gallery-dark.png') });
  assert.deepEqual(page.faults, []);
  await page.close();
});

test('the gallery shows its pictures without scripts', async () => {
  const page = await openPage({ javaScriptEnabled: false }, `file://${resolve(built, 'gallery.html')}`);
  assert.ok(await page.locator('section img').first().isVisible());
  await page.close();
});

test('an empty project has the package', async () => {
  const project = join(folder, 'project');
  const source = join(folder, 'package');
  mkdirSync(project);
  cpSync('wasm/js', source, { recursive: true });
  cpSync(join(built, 'kxcharts.wasm'), join(source, 'kxcharts.wasm'));
  const npm = (...args) => execFileSync('npm', [...args, '--offline', '--no-audit', '--no-fund', '--silent'], { cwd: project });
  writeFileSync(join(project, 'package.json'), '{"name": "empty", "private": true, "type": "module"}');
  npm('pack', source);
  npm('install', './kxcharts-0.1.0.tgz');
  const files = join(project, 'node_modules/kxcharts');
  assert.ok(readFileSync(join(files, 'kxcharts.d.ts'), 'utf8').includes('loadCharts'));
  const example = readFileSync(join(files, 'README.md'), 'utf8').match(/```js\n([\s\S]*?)```/)[1];
  assert.ok(example.trim().split('\n').length <= 20, 'the example has at most twenty lines');
  writeFileSync(join(project, 'example.js'), `${example.replace("'kxcharts'", "'./node_modules/kxcharts/kxcharts.js'")}
globalThis.shown = { view };`);
  writeFileSync(join(project, 'index.html'), `<!DOCTYPE html><link rel="stylesheet" href="../strict.css">
<div id="one"><div id="deliveries"></div></div><script type="module" src="example.js"></script>`);
  writeFileSync(join(folder, 'strict.css'), 'body { margin: 0 } #one, #two, #deliveries { width: 600px; height: 400px } #two { margin-top: 3000px }');
  const page = await openPage({}, `${base}/project/index.html`);
  await page.waitForFunction(() => globalThis.shown?.view.framesDrawn > 0);
  assert.ok((await lookAt(page)).marks > 10000);
  assert.deepEqual(page.faults, []);
  await page.close();
});

test('no page asked another host', () => {
  assert.deepEqual(asked.filter((url) => !url.startsWith(base) && !url.startsWith('file:') && !url.startsWith('data:')), []);
});
