/** Charts in a page. All of them share one module; nothing is asked of any other host. */

export type ColumnType = 'text' | 'integer' | 'float' | 'date' | 'time' | 'datetime';

/** Numbers (NaN is a null) or texts, one for each row. */
export interface Column {
  numbers?: ArrayLike<number | null> | SharedNumbers;
  texts?: readonly (string | null)[];
  /** In place of a list: how many rows there are, and what stands in each; asked whenever the column is set. */
  count?: number;
  at?: (row: number) => number | string | null;
}

export interface Dimension extends Column {
  label: string;
  /** Of texts: those that are dates or times lie at their times along a continuous axis. */
  type?: ColumnType;
  /** What dates were grouped by, the number of a KXChartAggregateType. */
  level?: number;
}

export interface Measure extends Column {
  label: string;
  /** Whole numbers, which are written without decimals. */
  integer?: boolean;
}

/** With one dimension each row is a category and each measure a series; with more, a row is a cell. */
export interface TableData {
  dimensions?: Dimension[];
  measures: Measure[];
  /** A measure that colours the others. */
  colorMeasure?: number;
  /** [measure, low, high]: two measures are the ends of another one's band. */
  bands?: [number, number, number][];
}

/** A saved chart: its keys are those of the documents page; a key that is missing has its default. */
export interface ChartDocument {
  type: string;
  [key: string]: unknown;
}

/** What happened to an item of a chart. */
export interface ItemEvent {
  event: 'click' | 'menu';
  chart: number;
  identifier: string;
  /** (dimension, member) or empty */
  dimension: number[];
  /** (measure, member of each dimension) or empty */
  value: number[];
}

/** Shares of a view, 0 to 1. */
export interface Place {
  x: number;
  y: number;
  width: number;
  height: number;
}

export interface ChartOptions {
  document: ChartDocument | string;
  data?: Table | TableData;
  /** The whole view unless given. */
  place?: Place;
  /** Ground around the chart inside its place, in CSS pixels; 8 unless given. */
  padding?: number;
  onclick?: (this: Chart, event: ItemEvent) => void;
  onmenu?: (this: Chart, event: ItemEvent) => void;
}

export class SharedNumbers {
  private constructor();
  readonly length: number;
  /** The numbers, to be written; ask anew after each call that may make the module's memory grow. */
  readonly values: Float64Array;
  /** The maker needs them no more; they stay as long as a table has them. */
  letGo(): void;
}

/** Data of any number of charts, which take up what changes. */
export class Table {
  private constructor();
  readonly data: TableData;
  set(data: TableData): void;
  replaceDimension(index: number, column: Column): void;
  replaceMeasure(index: number, column: Column): void;
  /** Several changes that the charts are told of once. */
  update(change: (table: Table) => void): void;
  /** Tells that shared numbers have changed. */
  changed(): void;
  destroy(): void;
}

export class Chart {
  private constructor();
  /** The document as it is saved now; one that is set takes the chart's place. */
  document: ChartDocument;
  readonly name: string;
  readonly table: Table | null;
  /** What covers the chart for the keyboard and for those who do not see it. */
  readonly element: HTMLElement;
  place: Place;
  show(data: Table | TableData): void;
  /** 'light', 'dark', 'high-contrast', 'color-blind-light', 'color-blind-dark'; any other is no theme. */
  setTheme(name: string): void;
  svg(width: number, height: number): string;
  /** Takes up a changed place. */
  layout(): void;
  destroy(): void;
}

/** Charts on one canvas, with their hints and menus; what is pointed at stands out in all of them. */
export class View {
  private constructor();
  readonly element: HTMLElement;
  readonly canvas: HTMLCanvasElement;
  /** Frames that changed the canvas so far. */
  readonly framesDrawn: number;
  addChart(options: ChartOptions): Chart;
  destroy(): void;
}

export interface ViewOptions {
  /** What the charts stand on: red, green and blue to 255, alpha to 1. White unless given. */
  ground?: [number, number, number, number];
}

export interface ChartsOptions {
  /** CSS families of the font that documents call "Default". */
  family?: string;
}

export class Charts {
  private constructor();
  /** @param element has a size; the view follows it */
  createView(element: HTMLElement, options?: ViewOptions): View;
  createTable(data?: TableData): Table;
  /** Numbers that charts read without a copy, once they are a column's. */
  shareNumbers(length: number): SharedNumbers;
  /** Fonts have come; called for those of the page. */
  measureAnew(): void;
}

/** @param source bytes, a Response or a URL of the module; beside the package's file unless given */
export function loadCharts(source?: BufferSource | Response | URL | string, options?: ChartsOptions): Promise<Charts>;
