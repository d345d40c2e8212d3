// What the tests share: the module without a page, and the samples.

import { readFileSync } from 'node:fs';
import { join } from 'node:path';
import { Module } from '../js/module.js';
import { Table } from '../js/table.js';

/** The folders of the built module and of the samples that kx_web_samples wrote. */
export const built = process.env.KX_WEB_BUILD ?? 'build/web';
export const samplesFolder = process.env.KX_WEB_SAMPLES ?? 'out/web/samples';

const compiled = new WebAssembly.Module(readFileSync(join(built, 'kxcharts.wasm')));

/** @return charts without a page: a text measures the same here and in the library, and nothing is shown */
export function makeCharts() {
  const module = new Module(compiled, {
    measureText: (text, family, size) => 0.54 * size * text.length,
    lineHeight: (family, size) => 1.17 * size,
    requestFrame() {}, showCursor() {}, notify() {}, writeClipboard() {},
  });
  module.exports.measureByPage(0);
  return { module, dataChanged() {}, view: module.exports.createView() };
}

export function addChart(charts, document) {
  const text = typeof document === 'string' ? document : JSON.stringify(document);
  return charts.module.withText(text, (at, size) => charts.module.exports.addChart(charts.view, at, size));
}

/** @return {handle, table} of a sample's chart over its data */
export function openSample(charts, sample) {
  const handle = addChart(charts, sample.document);
  const table = new Table(charts, sample.data);
  charts.module.exports.serveChart(table.handle, handle);
  return { handle, table };
}

export function closeSample(charts, { handle, table }) {
  charts.module.exports.removeChart(charts.view, handle);
  table.destroy();
}

/** @return every chart of the gallery, those of dashboards among them */
export function readSamples() {
  const list = JSON.parse(readFileSync(join(samplesFolder, 'samples.json'), 'utf8'));
  return list.flatMap((sample) => sample.items ?? [sample]);
}
