// Columns of texts and numbers, for any number of charts.

const TYPES = ['text', 'integer', 'float', 'date', 'time', 'datetime'];

/** @return the column with what it answers in lists; whether it is of numbers shows in its first answer that is no null */
function askColumn(column) {
  if (!column.at) return column;
  const cells = Array.from({ length: column.count ?? 0 }, (_, row) => column.at(row) ?? null);
  const isOfTexts = typeof cells.find((cell) => cell !== null) === 'string';
  return { ...column, ...(isOfTexts ? { texts: cells } : { numbers: cells }) };
}

export class Table {
  /** @param data {dimensions: [{label, texts | numbers, type?, level?}], measures: [{label, numbers | texts, integer?}],
   *  where count and at(row) may answer in place of a list;
   *  colorMeasure?, bands?: [[measure, low, high]]} */
  constructor(charts, data = {}) {
    this.charts = charts;
    this.module = charts.module;
    this.handle = this.module.exports.createTable();
    this.borrowed = [];
    this.set(data);
  }

  /** Replaces everything; the charts show it at once. */
  set(given) {
    const { exports } = this.module;
    const data = {
      ...given, dimensions: (given.dimensions ?? []).map(askColumn), measures: (given.measures ?? []).map(askColumn),
    };
    this.data = data;
    exports.beginUpdate(this.handle);
    exports.clearTable(this.handle);
    this.releaseBorrowed();
    for (const each of data.dimensions) this.put(0, -1, each);
    for (const each of data.measures) this.put(1, -1, each);
    exports.setColorMeasure(this.handle, data.colorMeasure ?? -1);
    for (const [measure, low, high] of data.bands ?? []) exports.setBand(this.handle, measure, low, high);
    exports.endUpdate(this.handle);
    this.charts.dataChanged(this);
  }

  /** @param column as in the constructor; its label stays */
  replaceDimension(index, column) { this.replace(0, index, 'dimensions', column); }

  replaceMeasure(index, column) { this.replace(1, index, 'measures', column); }

  /** Several changes that the charts are told of once. */
  update(change) {
    this.module.exports.beginUpdate(this.handle);
    try {
      change(this);
    } finally {
      this.module.exports.endUpdate(this.handle);
    }
  }

  /** Tells that numbers that the table shares have changed. */
  changed() {
    this.module.exports.dataChanged(this.handle);
    this.charts.dataChanged(this);
  }

  destroy() {
    if (this.handle === 0) return;
    this.module.exports.destroyTable(this.handle);
    this.handle = 0;
    this.releaseBorrowed();
  }

  replace(isMeasure, index, list, given) {
    const column = askColumn(given);
    this.put(isMeasure, index, column);
    const own = this.data[list]?.[index];
    if (own) Object.assign(own, column);
    this.charts.dataChanged(this);
  }

  put(isMeasure, index, { label = '', texts, numbers, type = 'text', level = 0, integer = false }) {
    const { exports } = this.module;
    this.module.withText(label, (at, size) => {
      if (numbers instanceof SharedNumbers) {
        exports.setNumbers(this.handle, isMeasure, index, at, size, integer ? 1 : 0, numbers.address, numbers.length, 1);
        this.borrowed.push(numbers.use());
      } else if (numbers) {
        const own = numbers instanceof Float64Array ? numbers : Float64Array.from(numbers, (value) => value ?? NaN);
        this.module.withBytes(own, (address) => exports.setNumbers(this.handle, isMeasure, index, at, size,
          integer ? 1 : 0, address, own.length, 0));
      } else {
        this.putTexts(isMeasure, index, at, size, texts ?? [], Math.max(TYPES.indexOf(type), 0), level);
      }
    });
  }

  putTexts(isMeasure, index, label, labelSize, texts, type, level) {
    const pieces = texts.map((each) => this.module.encoder.encode(each ?? ''));
    const sizes = Uint32Array.from(pieces, (each) => each.length);
    const bytes = new Uint8Array(sizes.reduce((sum, size) => sum + size, 0));
    let at = 0;
    for (const piece of pieces) {
      bytes.set(piece, at);
      at += piece.length;
    }
    this.module.withBytes(bytes, (address) => this.module.withBytes(sizes, (sizesAddress) =>
      this.module.exports.setTexts(this.handle, isMeasure, index, label, labelSize, type, level, address, sizesAddress,
        texts.length)));
  }

  releaseBorrowed() {
    for (const numbers of this.borrowed.splice(0)) numbers.letGo();
  }
}

/** Numbers in the module's memory, which charts read where they are. */
export class SharedNumbers {
  constructor(module, length) {
    this.module = module;
    this.length = length;
    this.address = module.allocate(8 * length);
    this.users = 1;
  }

  /** @return a view of the numbers, until the module's memory grows: ask anew after each call of it */
  get values() { return new Float64Array(this.module.memory.buffer, this.address, this.length); }

  use() {
    ++this.users;
    return this;
  }

  /** The maker needs them no more; they stay as long as a table has them. */
  letGo() {
    if (--this.users === 0) this.module.exports.release(this.address);
  }
}
