import { loadCharts } from './js/kxcharts.js';

const charts = await loadCharts(new URL('./kxcharts.wasm', import.meta.url));
const table = charts.createTable({
  dimensions: [{ label: 'Region', texts: ['North', 'South', 'East', 'West'] }],
  measures: [
    { label: 'On time', numbers: [940, 410, 870, 300], integer: true },
    { label: 'Late', numbers: [60, 90, 30, 20], integer: true },
  ],
});
const clicked = [];
const view = charts.createView(document.getElementById('one'));
const bars = view.addChart({
  document: { type: 'KXBarChart', m_titleValue: 'Deliveries by region' },
  data: table, place: { x: 0, y: 0, width: 0.5, height: 1 }, onclick: (event) => clicked.push(event),
});
const lines = view.addChart({
  document: { type: 'KXLineChart', m_titleValue: 'The same as lines' },
  data: table, place: { x: 0.5, y: 0, width: 0.5, height: 1 },
});
const far = charts.createView(document.getElementById('two'));
far.addChart({ document: { type: 'KXPieChart', m_titleValue: 'Far below' }, data: table });
globalThis.shown = { charts, table, view, bars, lines, far, clicked };
