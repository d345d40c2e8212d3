// Charts in a page. `const charts = await loadCharts()`, then `charts.createView(element).addChart({document, data})`.

import { Module } from './module.js';
import { SharedNumbers, Table } from './table.js';
import { TextRuler } from './text_ruler.js';
import { View } from './view.js';

export class Charts {
  /** @param compiled a WebAssembly.Module @param options {family?: CSS of the font called "Default"} */
  constructor(compiled, options = {}) {
    this.document = globalThis.document ?? null;
    this.ruler = new TextRuler(this.document, options.family);
    this.views = new Map();
    this.Table = Table;
    this.module = new Module(compiled, {
      measureText: (...all) => this.ruler.width(...all),
      lineHeight: (...all) => this.ruler.lineHeight(...all),
      requestFrame: (view) => this.views.get(view)?.requestFrame(),
      showCursor: (view, cursor) => this.views.get(view)?.showCursor(cursor),
      notify: (view, message) => this.views.get(view)?.receive(JSON.parse(message)),
      writeClipboard: (text) => globalThis.navigator?.clipboard?.writeText(text).catch(() => {}),
    });
    this.module.exports.measureByPage(this.document ? 1 : 0);
    this.module.withText('', (at, size) => this.module.exports.setClipboard(at, size));
    this.document?.fonts?.addEventListener?.('loadingdone', () => this.measureAnew());
  }

  /** @param element as large as the view is to be */
  createView(element, options) {
    const view = new View(this, element, options);
    this.views.set(view.handle, view);
    view.requestFrame();
    return view;
  }

  createTable(data) { return new Table(this, data); }

  /** @return numbers that charts read without a copy, once they are a column's */
  shareNumbers(length) { return new SharedNumbers(this.module, length); }

  /** Fonts have come, or the page's have changed. */
  measureAnew() {
    this.ruler.forget();
    this.module.exports.measureByPage(1);
    for (const view of this.views.values()) this.module.exports.measureAnew(view.handle);
  }

  dataChanged(table) {
    for (const view of this.views.values())
      for (const chart of view.items) if (chart.table === table) chart.words.updateLater();
  }

  forget(view) { this.views.delete(view.handle); }
}

/** @param source bytes, a Response or a URL of the module; beside this file unless given */
export async function loadCharts(source = new URL('./kxcharts.wasm', import.meta.url), options = {}) {
  let bytes = source;
  if (source instanceof URL || typeof source === 'string') bytes = await fetch(source);
  if (typeof Response !== 'undefined' && bytes instanceof Response) bytes = await bytes.arrayBuffer();
  return new Charts(await WebAssembly.compile(bytes), options);
}

export { SharedNumbers, Table } from './table.js';
export { View } from './view.js';
export { Chart } from './chart.js';
