// The gallery: pictures that turn into charts when they come into sight.

import { Charts } from './kxcharts.js';

const GROUNDS = { '': [255, 255, 255, 1], dark: [24, 26, 31, 1] };
/** What is farther from the window than this share of it is a picture again. */
const REACH = '60%';

async function openBlock(id) {
  const text = document.getElementById(id).textContent.trim();
  const bytes = Uint8Array.from(atob(text), (letter) => letter.charCodeAt(0));
  return new Response(new Blob([bytes]).stream().pipeThrough(new DecompressionStream('gzip'))).arrayBuffer();
}

/** A sample's section: its picture, and its charts while it is in sight. */
class Section {
  constructor(gallery, element, sample) {
    this.gallery = gallery;
    this.element = element;
    this.place = element.querySelector('.chart');
    this.editor = element.querySelector('textarea');
    this.fault = element.querySelector('output');
    this.items = sample.items ?? [sample];
    this.documents = this.items.map(({ document }) => document);
    this.editor.addEventListener('input', () => this.edit());
  }

  open() {
    if (this.view) return;
    this.view = this.gallery.charts.createView(this.place, { ground: GROUNDS[this.gallery.theme] ?? GROUNDS[''] });
    this.charts = this.items.map(({ data, place }, i) => {
      const chart = this.view.addChart({ document: this.documents[i], data, place, onclick: (event) => this.tell(event) });
      if (this.gallery.theme) chart.setTheme(this.gallery.theme);
      return chart;
    });
    if (!this.editor.value) this.editor.value = JSON.stringify(this.documents[0], null, 2);
    this.element.classList.add('live');
  }

  close() {
    this.view?.destroy();
    this.view = null;
    this.element.classList.remove('live');
  }

  tell({ dimension, value }) { this.fault.textContent = `Clicked: ${JSON.stringify(value.length ? value : dimension)}`; }

  edit() {
    try {
      const edited = JSON.parse(this.editor.value);
      if (this.charts) this.charts[0].document = edited;
      this.documents[0] = edited;
      this.fault.textContent = '';
    } catch (error) {
      this.fault.textContent = error.message;
    }
  }
}

export class Gallery {
  constructor(charts, samples) {
    this.charts = charts;
    this.theme = '';
    const byName = new Map(samples.map((sample) => [sample.name, sample]));
    this.sections = [...document.querySelectorAll('section')].map((each) => new Section(this, each, byName.get(each.id)));
    this.sight = new IntersectionObserver((entries) => {
      for (const { target, isIntersecting } of entries) {
        const section = this.sections.find(({ element }) => element === target);
        if (isIntersecting) section.open();
        else section.close();
      }
    }, { rootMargin: REACH });
    for (const { element } of this.sections) this.sight.observe(element);
    document.getElementById('theme').addEventListener('change', (event) => this.take(event.target.value));
  }

  take(theme) {
    this.theme = theme;
    document.body.classList.toggle('dark', theme === 'dark');
    for (const section of this.sections.filter(({ view }) => view)) {
      section.close();
      section.open();
    }
  }
}

const charts = new Charts(await WebAssembly.compile(await openBlock('module')));
const samples = JSON.parse(new TextDecoder().decode(await openBlock('samples')));
globalThis.gallery = new Gallery(charts, samples);
