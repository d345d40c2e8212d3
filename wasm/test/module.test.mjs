// The module without a page: it draws what the library draws, and nothing from outside stops it.

import assert from 'node:assert/strict';
import { readdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';
import { test } from 'node:test';
import { addChart, closeSample, makeCharts, openSample, readSamples, samplesFolder } from './support.mjs';

function drawSvg(charts, handle, width, height) {
  charts.module.exports.drawSvg(handle, width, height);
  return charts.module.answer();
}

test('every sample at every size is the bytes that the library draws', () => {
  const charts = makeCharts();
  const different = [];
  let pictures = 0;
  for (const sample of readSamples()) {
    for (const [width, height] of sample.sizes) {
      const opened = openSample(charts, sample);
      const file = `${sample.name}-${width}x${height}.svg`;
      const drawn = drawSvg(charts, opened.handle, width, height);
      if (drawn !== readFileSync(join(samplesFolder, file), 'utf8')) different.push(file);
      closeSample(charts, opened);
      ++pictures;
    }
  }
  assert.ok(pictures > 400, `only ${pictures} pictures`);
  assert.deepEqual(different, []);
  console.log(`${pictures} pictures are the same`);
});

test('a column that answers is one that lists', () => {
  const charts = makeCharts();
  const sample = readSamples().find(({ data }) => data.dimensions.length === 1 && data.measures.length > 1);
  const answering = (column) => {
    const { texts, numbers, ...rest } = column;
    const list = texts ?? numbers;
    return { ...rest, count: list.length, at: (row) => list[row] };
  };
  const { dimensions, measures } = sample.data;
  const asked = { ...sample, data: { ...sample.data, dimensions: dimensions.map(answering), measures: measures.map(answering) } };
  const [listed, answered] = [sample, asked].map((each) => drawSvg(charts, openSample(charts, each).handle, 480, 320));
  assert.equal(answered, listed);
});

test('hostile documents are refused or drawn', () => {
  const charts = makeCharts();
  const kept = readdirSync('fuzz/corpus/json').map((file) => readFileSync(join('fuzz/corpus/json', file), 'latin1'));
  const hostile = ['', '{', '[]', 'null', '"KXBarChart"', '{"type":1}', '{"type":"KXNoChart"}', '{"type":"KXBarChart","m_titleValue":5}',
    '['.repeat(100000), '{"type":'.repeat(1000), `{"type":"KXBarChart","m_titleValue":"${'\ud83d\ude00'.repeat(50000)}"}`,
    `{"type":"KXBarChart","x":[${'1,'.repeat(1000000)}1]}`, `"${'x'.repeat(20 << 20)}"`, '{"type":"KXBarChart","m_fontSize":1e308}',
    ...kept];
  let drawn = 0;
  for (const document of hostile) {
    const handle = addChart(charts, document);
    if (handle === 0) continue;
    drawSvg(charts, handle, 300, 200);
    charts.module.exports.removeChart(charts.view, handle);
    ++drawn;
  }
  console.log(`${hostile.length} documents, of which ${drawn} are charts`);
});

test('odd sizes, scales and places neither trap nor draw beyond the canvas', () => {
  const charts = makeCharts();
  const { exports } = charts.module;
  const sample = readSamples().find(({ document }) => document.type === 'KXBarChart');
  const { handle } = openSample(charts, sample);
  const odd = [0, -1, 1, 0.5, 1e9, -1e9, NaN, Infinity, 2147483647];
  for (const width of odd) {
    for (const scale of [0, 1, 1.5, NaN, 1e9, 1e-9]) {
      exports.placeChart(handle, 0, 0, width, width);
      exports.resizeView(charts.view, Math.min(width, 4000), 300, scale);
      exports.drawFrame(charts.view, 0);
      exports.pointer(charts.view, 1, width, width, 0, 0, NaN, Infinity);
    }
    drawSvg(charts, handle, Math.min(width, 4000), 20);
  }
  exports.placeChart(handle, 0, 0, 300, 200);
  exports.resizeView(charts.view, 300, 200, 1);
  assert.ok(exports.drawFrame(charts.view, 0) > 0, 'it draws again');
});

test('memory stays level over 10,000 charts made and destroyed', () => {
  const charts = makeCharts();
  const samples = readSamples().filter(({ data }) => JSON.stringify(data).length < 4000);
  const make = (count) => {
    for (let i = 0; i < count; ++i) {
      const opened = openSample(charts, samples[i % samples.length]);
      charts.module.exports.placeChart(opened.handle, 0, 0, 320, 200);
      if (i % 10 === 0) charts.module.exports.drawFrame(charts.view, i);
      closeSample(charts, opened);
    }
    return charts.module.memory.buffer.byteLength;
  };
  charts.module.exports.resizeView(charts.view, 320, 200, 1);
  const begin = make(1000), end = make(9000);
  assert.equal(end, begin, `${begin} bytes became ${end}`);
  console.log(`${samples.length} kinds of charts, ${end} bytes`);
});

test('a view at rest draws no frame and waits for no timer', () => {
  const charts = makeCharts();
  const { exports } = charts.module;
  openSample(charts, readSamples()[0]);
  exports.resizeView(charts.view, 300, 200, 1);
  exports.drawFrame(charts.view, 0);
  assert.equal(exports.drawFrame(charts.view, 16), 0);
  assert.equal(exports.nextTimer(charts.view, 16), -1);
});
