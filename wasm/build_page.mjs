// The gallery, or the page of documents with a chart beside its keys, as one file: pictures, module, samples and script.
//   node wasm/build_page.mjs MODULE SAMPLES OUT [docs/documents.md]
// It works from a file, asks nothing of any host, and allows nothing but its own script and style.

import { createHash } from 'node:crypto';
import { readFileSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { gzipSync } from 'node:zlib';
import { escape, readMarkdown } from './markdown.mjs';

const [moduleFile, samplesFolder, out, documents] = process.argv.slice(2);
const scripts = join(dirname(fileURLToPath(import.meta.url)), 'js');

/** The modules behind each other, each before those that use it. */
const ORDER = ['module', 'table', 'text_ruler', 'words', 'canvas_player', 'chart', 'view', 'kxcharts', 'gallery'];

function bundle() {
  return ORDER.map((name) => readFileSync(join(scripts, `${name}.js`), 'utf8')
    .replace(/^import .*$/gm, '').replace(/^export \{.*$/gm, '').replace(/^export /gm, '')).join('\n');
}

const style = `
body { font: 15px/1.5 system-ui, sans-serif; color: #26282e; background: #f4f5f7; margin: 2rem auto; max-width: 1000px; padding: 0 1rem }
section { background: #fff; border: 1px solid #e1e3e8; border-radius: 8px; padding: 1rem; margin: 1.5rem 0 }
section h2 { font-size: 1.1rem; margin: 0 0 .6rem }
.chart { position: relative; height: 420px }
.board .chart { height: 620px }
.chart img { width: 100%; height: 100%; object-fit: contain }
.live .chart img { display: none }
textarea { width: 100%; height: 16rem; font: 13px/1.4 monospace; box-sizing: border-box; color: inherit; background: inherit }
output { color: #b3261e; display: block; min-height: 1.5em }
table { border-collapse: collapse; font-size: 14px; display: block; overflow-x: auto }
th, td { text-align: left; vertical-align: top; padding: .25rem .6rem; border-bottom: 1px solid #e1e3e8 }
body.dark { color: #e6e7ea; background: #101216 }
.dark section { background: #181a1f; border-color: #30333b }
.dark th, .dark td { border-color: #30333b }
.dark a { color: #9db7f5 }
`;

const hash = (text) => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;
const block = (id, bytes) => `<script type="application/octet-stream" id="${id}">${gzipSync(bytes, { level: 9 }).toString('base64')}</script>\n`;

function picture({ name, sizes }) {
  const [width, height] = sizes[1] ?? sizes[0];
  const svg = readFileSync(join(samplesFolder, `${name}-${width}x${height}.svg`));
  return `data:image/svg+xml;base64,${svg.toString('base64')}`;
}

function section(sample) {
  const name = escape(sample.name), caption = escape(sample.caption || sample.name);
  return `<section id="${name}"${sample.items ? ' class="board"' : ''}>
<h2>${caption}</h2>
<div class="chart"><img loading="lazy" alt="${caption}" src="${picture(sample.items?.[0] ?? sample)}"></div>
<details><summary>The document</summary><textarea spellcheck="false" aria-label="The document of ${name}"></textarea></details>
<output></output>
</section>
`;
}

/** Each kind's keys, with a chart of that kind to try them on. */
function documentPage(text, samples) {
  const used = [];
  const html = readMarkdown(text).map((part) => {
    const kind = part.heading.match(/^(KX\w+) documents$/)?.[1];
    const sample = kind && samples.find(({ document }) => document?.type === kind);
    if (!sample) return part.html;
    used.push(sample);
    return part.html + section(sample);
  });
  return [html.join('\n'), used];
}

const all = JSON.parse(readFileSync(join(samplesFolder, 'samples.json'), 'utf8'));
const [content, samples] = documents ? documentPage(readFileSync(documents, 'utf8'), all)
  : [`<h1>Gallery</h1>\n${all.map(section).join('')}`, all];
const script = bundle();
const policy = `default-src 'none'; img-src data:; style-src ${hash(style)}; script-src ${hash(script)} 'wasm-unsafe-eval'`;
writeFileSync(out, `<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<meta http-equiv="Content-Security-Policy" content="${policy}">
<title>libkxcharts ${documents ? 'documents' : 'gallery'}</title>
<style>${style}</style>
<p>Pictures first; where scripts run they turn into charts as they come into sight, and a changed document is shown at once.
<label>Theme <select id="theme"><option value="">as made</option><option>light</option><option>dark</option><option>high-contrast</option><option>color-blind-light</option></select></label></p>
${content}
${block('samples', JSON.stringify(samples))}${block('module', readFileSync(moduleFile))}<script type="module">${script}</script>
</html>
`);
console.log(`${samples.length} samples in ${out}`);
