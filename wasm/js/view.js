// Charts on one canvas: input, frames and sizes.

import { CanvasPlayer } from './canvas_player.js';
import { Chart } from './chart.js';

const DOWN = 0, MOVE = 1, UP = 2, ENTER = 3, LEAVE = 4, WHEEL = 5, DOUBLE = 6;
const SHIFT = 2, CTRL = 4, ALT = 8, LEFT = 16, RIGHT = 32;
const CURSORS = ['default', 'pointer', 'text', 'move', 'ew-resize', 'ns-resize', 'not-allowed', 'wait'];
const ENTER_KEY = 13, SPACE = 32;
/** What a notch of a wheel is in the units that pages have. */
const NOTCHES = [1 / 100, 1 / 3, 1];
/** A finger that rests this long, in milliseconds, asks for a menu; one that moved this far scrolls. */
const LONG_PRESS = 500, SLOP = 10;

function modifiers(event) {
  return (event.shiftKey ? SHIFT : 0) | (event.ctrlKey || event.metaKey ? CTRL : 0) | (event.altKey ? ALT : 0);
}

function buttonKey(event) { return event.button === 2 ? RIGHT : event.button === 0 ? LEFT : 0; }

export class View {
  /** @param element takes a canvas as large as it is @param options {ground?: [red, green, blue, alpha]} */
  constructor(charts, element, options = {}) {
    this.charts = charts;
    this.module = charts.module;
    this.element = element;
    this.window = element.ownerDocument.defaultView;
    this.handle = this.module.exports.createView();
    this.items = [];
    this.size = { width: 1, height: 1 };
    this.frame = 0;
    this.timeout = 0;
    this.isInSight = !this.window.IntersectionObserver; // which says so at once
    this.framesDrawn = 0;
    this.canvas = this.makeCanvas();
    this.player = new CanvasPlayer(this.canvas, charts.ruler);
    if (options.ground) this.module.exports.setGround(this.handle, ...options.ground);
    this.stop = new AbortController();
    this.listen();
    this.observe();
    this.fit();
  }

  makeCanvas() {
    if (this.window.getComputedStyle(this.element).position === 'static') this.element.style.position = 'relative';
    const canvas = this.element.ownerDocument.createElement('canvas');
    Object.assign(canvas.style, { position: 'absolute', left: '0', top: '0', width: '100%', height: '100%', touchAction: 'pan-y' });
    canvas.setAttribute('aria-hidden', 'true');
    this.element.append(canvas);
    return canvas;
  }

  // Charts
  addChart(options) {
    const chart = new Chart(this, options);
    this.items.push(chart);
    chart.layout();
    this.requestFrame();
    return chart;
  }

  forget(chart) {
    this.items = this.items.filter((each) => each !== chart);
    this.requestFrame();
  }

  destroy() {
    if (this.handle === 0) return;
    for (const chart of [...this.items]) chart.destroy();
    this.stop.abort();
    this.sizes.disconnect();
    this.sight?.disconnect();
    this.window.cancelAnimationFrame(this.frame);
    this.window.clearTimeout(this.timeout);
    this.canvas.remove();
    this.module.exports.destroyView(this.handle);
    this.charts.forget(this);
    this.handle = 0;
  }

  // Size and sight
  observe() {
    this.sizes = new this.window.ResizeObserver(() => this.fit());
    this.sizes.observe(this.element);
    if (this.window.IntersectionObserver) {
      this.sight = new this.window.IntersectionObserver((entries) => {
        this.isInSight = entries[entries.length - 1].isIntersecting;
        if (this.isInSight) this.requestFrame();
      });
      this.sight.observe(this.element);
    }
    this.watchScale();
    const still = this.window.matchMedia('(prefers-reduced-motion: reduce)');
    const tell = () => this.module.exports.setReduceMotion(this.handle, still.matches ? 1 : 0);
    still.addEventListener('change', tell, { signal: this.stop.signal });
    tell();
  }

  /** A window that goes to another screen has another scale. */
  watchScale() {
    const query = this.window.matchMedia(`(resolution: ${this.window.devicePixelRatio}dppx)`);
    query.addEventListener('change', () => {
      this.fit();
      this.watchScale();
    }, { once: true, signal: this.stop.signal });
  }

  fit() {
    if (this.handle === 0) return;
    const scale = this.window.devicePixelRatio || 1;
    const { clientWidth: width, clientHeight: height } = this.element;
    const pixels = [Math.max(1, Math.round(width * scale)), Math.max(1, Math.round(height * scale))];
    if (this.scale === scale && this.canvas.width === pixels[0] && this.canvas.height === pixels[1]) return;
    this.scale = scale;
    this.size = { width, height };
    // Each makes a new canvas, even where it is the same number.
    if (this.canvas.width !== pixels[0]) this.canvas.width = pixels[0];
    if (this.canvas.height !== pixels[1]) this.canvas.height = pixels[1];
    this.player.layers = [];
    this.module.exports.resizeView(this.handle, ...pixels, scale);
    for (const chart of this.items) chart.layout();
    // A canvas that was resized is clear until it is drawn.
    if (this.isInSight) this.draw();
  }

  // Frames: one for each change, and none while nothing changes
  requestFrame() {
    if (this.frame !== 0 || !this.isInSight || this.handle === 0) return;
    this.frame = this.window.requestAnimationFrame(() => {
      this.frame = 0;
      this.draw();
    });
  }

  draw() {
    if (this.handle === 0) return;
    const { exports, memory } = this.module;
    const count = exports.drawFrame(this.handle, this.window.performance.now());
    if (count > 0) {
      this.player.play(memory.buffer, exports.frameAddress(this.handle), count);
      ++this.framesDrawn;
    }
    this.waitForTimer();
  }

  waitForTimer() {
    this.window.clearTimeout(this.timeout);
    const rest = this.module.exports.nextTimer(this.handle, this.window.performance.now());
    if (rest >= 0) this.timeout = this.window.setTimeout(() => this.requestFrame(), rest);
  }

  // Input
  listen() {
    const on = (type, handler, options = {}) =>
      this.canvas.addEventListener(type, handler, { signal: this.stop.signal, ...options });
    on('pointerdown', (event) => this.press(event));
    on('pointermove', (event) => this.move(event));
    on('pointerup', (event) => this.release(event));
    on('pointercancel', (event) => this.leave(event));
    on('pointerenter', (event) => this.send(ENTER, event));
    on('pointerleave', (event) => this.leave(event));
    on('wheel', (event) => this.turn(event), { passive: false });
    on('contextmenu', (event) => { if (this.items.some((chart) => chart.onmenu)) event.preventDefault(); });
    const keys = (type, goesDown) => this.element.addEventListener(type, (event) => this.key(event, goesDown),
      { signal: this.stop.signal });
    keys('keydown', 1);
    keys('keyup', 0);
    this.element.addEventListener('paste', (event) => this.paste(event), { signal: this.stop.signal });
  }

  send(type, event, keys = modifiers(event), clicks = 0, wheelX = 0, wheelY = 0) {
    const box = this.canvas.getBoundingClientRect();
    const x = (event.clientX - box.left) * this.scale, y = (event.clientY - box.top) * this.scale;
    return this.module.exports.pointer(this.handle, type, x, y, keys, clicks, wheelX, wheelY) !== 0;
  }

  press(event) {
    const key = buttonKey(event);
    if (key === 0) return;
    this.canvas.setPointerCapture(event.pointerId);
    this.focusAt(event);
    const isSecond = this.lastPress && event.timeStamp - this.lastPress.time < 400 &&
      Math.hypot(event.clientX - this.lastPress.x, event.clientY - this.lastPress.y) < SLOP;
    const clicks = isSecond ? this.lastPress.clicks + 1 : 1;
    this.lastPress = { time: event.timeStamp, x: event.clientX, y: event.clientY, clicks };
    if (event.pointerType === 'touch') {
      this.send(MOVE, event, modifiers(event)); // a finger that comes is over something at once
      this.longPress = this.window.setTimeout(() => this.openMenuAt(event), LONG_PRESS);
    }
    this.send(DOWN, event, modifiers(event) | key, clicks);
    if (clicks % 2 === 0 && key === LEFT) this.send(DOUBLE, event, modifiers(event) | key, clicks);
  }

  openMenuAt(event) {
    this.send(UP, event, modifiers(event) | LEFT, 0);
    this.send(DOWN, event, modifiers(event) | RIGHT, 1);
    this.send(UP, event, modifiers(event) | RIGHT, 1);
  }

  move(event) {
    if (this.lastPress && Math.hypot(event.clientX - this.lastPress.x, event.clientY - this.lastPress.y) > SLOP)
      this.window.clearTimeout(this.longPress);
    const held = (event.buttons & 1 ? LEFT : 0) | (event.buttons & 2 ? RIGHT : 0);
    this.send(MOVE, event, modifiers(event) | held);
  }

  release(event) {
    this.window.clearTimeout(this.longPress);
    const key = buttonKey(event);
    if (key !== 0) this.send(UP, event, modifiers(event) | key, this.lastPress?.clicks ?? 1);
  }

  leave(event) {
    this.window.clearTimeout(this.longPress);
    this.send(LEAVE, event);
  }

  turn(event) {
    const notch = NOTCHES[event.deltaMode];
    if (this.send(WHEEL, event, modifiers(event), 0, event.deltaX * notch, event.deltaY * notch)) event.preventDefault();
  }

  key(event, goesDown) {
    const isCommand = event.ctrlKey || event.metaKey;
    // Pasting waits for the text, which comes with an event of its own.
    if (isCommand && event.key.toLowerCase() === 'v') return;
    const text = event.key.length === 1 || [...event.key].length === 1 ? event.key : '';
    const typed = isCommand ? text.toLowerCase() : text;
    const isHandled = this.module.withText(typed, (at, size) =>
      this.module.exports.key(this.handle, goesDown, event.keyCode, modifiers(event), at, size)) !== 0;
    if (isHandled) event.preventDefault();
    else if (goesDown && (event.keyCode === ENTER_KEY || event.keyCode === SPACE)) {
      this.module.exports.activateChart(this.handle);
      event.preventDefault();
    }
  }

  paste(event) {
    this.module.withText(event.clipboardData.getData('text'), (at, size) => this.module.exports.setClipboard(at, size));
    this.module.withText('v', (at, size) => this.module.exports.key(this.handle, 1, 86, CTRL, at, size));
  }

  /** The keys go to the chart that is pressed. */
  focusAt(event) {
    const box = this.canvas.getBoundingClientRect();
    const x = (event.clientX - box.left) / box.width, y = (event.clientY - box.top) / box.height;
    const chart = this.items.find(({ place }) => x >= place.x && x < place.x + place.width && y >= place.y && y < place.y + place.height);
    chart?.element.focus({ preventScroll: true });
    event.preventDefault();
  }

  showCursor(cursor) { this.canvas.style.cursor = CURSORS[cursor] ?? 'default'; }

  /** @param message {event, chart, identifier, dimension, value} */
  receive(message) {
    const chart = this.items.find((each) => each.handle === message.chart);
    const handler = message.event === 'click' ? chart?.onclick : chart?.onmenu;
    if (handler) handler.call(chart, message);
  }
}
