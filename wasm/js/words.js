// What a chart says to those who do not see it: an element over the chart for the keyboard, with its name, and its values
// as a table.

import { SharedNumbers } from './table.js';

/** A table of more cells than this says how many there are. */
const MOST_ROWS = 200;

/** Data that change many times a second are told of less often, in milliseconds. */
const DELAY = 250;
const HIDDEN = { position: 'absolute', width: '1px', height: '1px', overflow: 'hidden', clipPath: 'inset(50%)', whiteSpace: 'nowrap' };

function makeElement(document, name, text = '') {
  const element = document.createElement(name);
  if (text) element.textContent = text;
  return element;
}

export class Words {
  /** @param place the element that covers the chart @param chart what is told of */
  constructor(place, chart) {
    this.chart = chart;
    this.place = place;
    this.timer = null;
    place.setAttribute('role', 'figure');
    place.tabIndex = 0;
    this.content = makeElement(place.ownerDocument, 'div');
    Object.assign(this.content.style, HIDDEN);
    place.append(this.content);
  }

  /** Tells of new data soon. */
  updateLater() {
    this.timer ??= setTimeout(() => this.update(), DELAY);
  }

  stop() {
    clearTimeout(this.timer);
    this.timer = null;
  }

  /** Tells what the chart shows now. */
  update() {
    this.stop();
    const { document: saved, name } = this.chart;
    const kind = String(saved.type ?? 'chart').replace(/^KX|Chart$/g, '').replace(/([a-z])([A-Z])/g, '$1 $2').toLowerCase();
    const data = this.chart.table?.data ?? {};
    this.place.setAttribute('aria-label', name ? `${name}, ${kind} chart` : `${kind} chart`);
    this.content.replaceChildren(this.makeTable(data));
  }

  makeTable({ dimensions = [], measures = [] }) {
    const document = this.place.ownerDocument;
    const table = makeElement(document, 'table');
    const columns = [...dimensions, ...measures];
    const head = table.appendChild(makeElement(document, 'tr'));
    for (const column of columns) head.append(makeElement(document, 'th', column.label ?? ''));
    const lists = columns.map(({ numbers, texts }) =>
      (numbers instanceof SharedNumbers ? numbers.values : numbers) ?? texts ?? []);
    const count = Math.max(0, ...lists.map((list) => list.length));
    for (let row = 0; row < Math.min(count, MOST_ROWS); ++row) {
      const line = table.appendChild(makeElement(document, 'tr'));
      for (const list of lists) line.append(makeElement(document, 'td', String(list[row] ?? '')));
    }
    if (count > MOST_ROWS) table.append(makeElement(document, 'caption', `The first ${MOST_ROWS} of ${count} rows`));
    return table;
  }
}
