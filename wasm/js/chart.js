// One chart of a view.

import { Words } from './words.js';

export class Chart {
  /** @param options {document, data?, place?: {x, y, width, height} as shares of the view, padding?,
   *  onclick?, onmenu?} */
  constructor(view, options) {
    this.view = view;
    this.module = view.module;
    this.place = options.place ?? { x: 0, y: 0, width: 1, height: 1 };
    this.padding = options.padding ?? 8;
    this.onclick = options.onclick ?? null;
    this.onmenu = options.onmenu ?? null;
    this.theme = '';
    this.handle = this.open(options.document);
    if (this.handle === 0) throw new TypeError('the document is no chart');
    this.element = this.makeElement();
    this.words = new Words(this.element, this);
    this.table = null;
    if (options.data) this.show(options.data);
  }

  open(document) {
    const text = typeof document === 'string' ? document : JSON.stringify(document);
    return this.module.withText(text, (at, size) => this.module.exports.addChart(this.view.handle, at, size));
  }

  /** An element where the chart is, for the keyboard and for those who do not see it. */
  makeElement() {
    const element = this.view.element.ownerDocument.createElement('div');
    Object.assign(element.style, { position: 'absolute', pointerEvents: 'none', boxSizing: 'border-box' });
    element.addEventListener('focus', () => this.module.exports.focusChart(this.view.handle, this.handle));
    this.view.element.append(element);
    return element;
  }

  /** @param data a Table, or what makes one */
  show(data) {
    const { Table } = this.view.charts;
    this.ownTable?.destroy();
    this.ownTable = data instanceof Table ? null : this.view.charts.createTable(data);
    this.table = this.ownTable ?? data;
    this.module.exports.setHandlers(this.table.handle, this.onclick ? 1 : 0, this.onmenu ? 1 : 0);
    this.module.exports.serveChart(this.table.handle, this.handle);
    this.words.update();
  }

  /** The document as it is saved now; a new one takes the chart's place. */
  get document() {
    this.module.exports.saveChart(this.handle);
    return JSON.parse(this.module.answer());
  }

  set document(document) {
    const made = this.open(document);
    if (made === 0) throw new TypeError('the document is no chart');
    this.module.exports.removeChart(this.view.handle, this.handle);
    this.handle = made;
    this.theme = '';
    this.layout();
    if (this.table) this.module.exports.serveChart(this.table.handle, this.handle);
    this.words.update();
  }

  /** The title, or the remarks where there is none. */
  get name() {
    this.module.exports.nameChart(this.handle);
    return this.module.answer();
  }

  /** @param name of a theme; an unknown one is the look that charts are made with */
  setTheme(name) {
    this.module.withText(this.theme, (at, size) => this.module.withText(name, (nameAt, nameSize) =>
      this.module.exports.applyTheme(this.handle, at, size, nameAt, nameSize)));
    this.theme = name;
  }

  /** @return the chart drawn at that size, SVG */
  svg(width, height) {
    this.module.exports.drawSvg(this.handle, width, height);
    const svg = this.module.answer();
    this.layout();
    return svg;
  }

  layout() {
    const { width, height } = this.view.size;
    const left = Math.round(this.place.x * width), top = Math.round(this.place.y * height);
    const right = Math.round((this.place.x + this.place.width) * width);
    const bottom = Math.round((this.place.y + this.place.height) * height);
    const inset = this.padding;
    this.module.exports.placeChart(this.handle, left + inset, top + inset, Math.max(right - left - 2 * inset, 0),
      Math.max(bottom - top - 2 * inset, 0));
    Object.assign(this.element.style, { left: `${left}px`, top: `${top}px`, width: `${right - left}px`, height: `${bottom - top}px` });
  }

  /** Leaves the view for good. */
  destroy() {
    if (this.handle === 0) return;
    this.module.exports.removeChart(this.view.handle, this.handle);
    this.handle = 0;
    this.words.stop();
    this.ownTable?.destroy();
    this.element.remove();
    this.view.forget(this);
  }
}
