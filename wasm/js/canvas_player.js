// Replays the commands of a frame on a canvas. The list is that of web_command.h.

const COMPOSITIONS = ['source-over', 'destination-out', 'copy', 'source-in', 'source-out', 'source-atop', 'destination-over',
  'destination-over', 'destination-in', 'destination-out', 'destination-atop', 'xor', 'lighter', 'multiply', 'screen',
  'overlay', 'darken', 'lighten'];
const CLEAR = 1, SOURCE = 2, DESTINATION = 6;
const CAPS = ['butt', 'round', 'square'], JOINS = ['miter', 'round', 'bevel'], RULES = ['nonzero', 'evenodd'];
const ALIGNS = ['left', 'center', 'right'];
const PAD = 0, NOTHING = 1, REFLECT = 3;
/** How often a gradient that repeats itself is laid out to either side of its line. */
const REPEATS = 16;
/** More arcs in one path are slower than in several. */
const MARKS_AT_ONCE = 64;

/** Gives a gradient its stops, beyond its ends as the source operator says. */
function addStops(gradient, stops, beyond) {
  if (beyond === PAD || beyond === NOTHING) {
    const clear = beyond === NOTHING ? 'rgba(0,0,0,0)' : null;
    if (clear) gradient.addColorStop(0, clear);
    for (const [offset, color] of stops) gradient.addColorStop(offset, color);
    if (clear) gradient.addColorStop(1, clear);
    return;
  }
  const total = 2 * REPEATS + 1;
  for (let i = 0; i < total; ++i) {
    const isTurned = beyond === REFLECT && (i - REPEATS) % 2 !== 0;
    const own = isTurned ? [...stops].reverse().map(([offset, color]) => [1 - offset, color]) : stops;
    for (const [offset, color] of own) gradient.addColorStop((i + offset) / total, color);
  }
}

export class CanvasPlayer {
  /** @param canvas what is drawn on; its owner sizes it
   *  @param ruler the TextRuler that the texts were measured with */
  constructor(canvas, ruler) {
    this.canvas = canvas;
    this.ruler = ruler;
    this.decoder = new TextDecoder();
    this.images = new Map(); // those of the last frame, by address
    this.layers = []; // canvases that are not in use
  }

  /** @param memory the module's memory @param address, count of the words */
  play(memory, address, count) {
    this.memory = memory;
    this.words = new Uint32Array(memory, address, count);
    this.floats = new Float32Array(memory, address, count);
    this.at = 0;
    this.stack = [];
    this.beneath = [];
    this.images = this.images ?? new Map();
    this.used = new Map();
    this.start(this.canvas.getContext('2d'));
    this.context.save();
    while (this.at < count) this.step(this.words[this.at++]);
    this.context.restore();
    this.images = this.used;
  }

  /** Begins to draw on a context with the initial state. */
  start(context) {
    this.context = context;
    this.state = { gradientMap: null, pen: [1, 0, 0, 1], mode: 0, ascent: 0 };
    context.setTransform(1, 0, 0, 1, 0, 0);
    context.globalAlpha = 1;
    context.globalCompositeOperation = 'source-over';
  }

  number() { return this.floats[this.at++]; }

  count() { return this.words[this.at++]; }

  numbers(length) {
    const values = Array.from(this.floats.subarray(this.at, this.at + length));
    this.at += length;
    return values;
  }

  text() {
    const size = this.count();
    const bytes = new Uint8Array(this.memory, this.words.byteOffset + 4 * this.at, size);
    this.at += (size + 3) >> 2;
    return this.decoder.decode(bytes);
  }

  color() {
    const [red, green, blue, alpha] = this.numbers(4);
    this.state.isOpaque = alpha === 1;
    return `rgba(${red},${green},${blue},${alpha})`;
  }

  step(command) {
    const c = this.context;
    switch (command) {
      case 0:
        c.save();
        this.stack.push({ ...this.state });
        break;
      case 1:
        c.restore();
        this.state = this.stack.pop();
        break;
      case 2: this.useColor(); break;
      case 3: this.useGradient(); break;
      case 4: this.usePen(); break;
      case 5:
        this.state.mode = this.count();
        c.globalCompositeOperation = COMPOSITIONS[this.state.mode];
        break;
      case 6: c.beginPath(); break;
      case 7: c.moveTo(this.number(), this.number()); break;
      case 8: c.lineTo(this.number(), this.number()); break;
      case 9: c.bezierCurveTo(this.number(), this.number(), this.number(), this.number(), this.number(), this.number()); break;
      case 10: c.closePath(); break;
      case 11: this.fill(RULES[this.count()]); break;
      case 12: this.stroke(); break;
      case 13: c.clip(RULES[this.count()]); break;
      case 14: this.fillRects(); break;
      case 15: this.strokePolyline(); break;
      case 16: this.fillMarks(); break;
      case 17: this.useFont(); break;
      case 18: this.fillText(); break;
      case 19: this.drawImage(); break;
      case 20: this.beginLayer(); break;
      case 21: this.endLayer(); break;
      default: throw new Error(`no command ${command}`);
    }
  }

  useColor() {
    this.context.fillStyle = this.context.strokeStyle = this.color();
    this.state.gradientMap = null;
  }

  useGradient() {
    let [x1, y1, x2, y2] = this.numbers(4);
    const map = this.numbers(6);
    const beyond = this.count();
    const stops = [];
    for (let left = this.count(); left > 0; --left) {
      const color = this.color();
      stops.push([this.number(), color]);
    }
    if (beyond > NOTHING) {
      const dx = (x2 - x1) * REPEATS, dy = (y2 - y1) * REPEATS;
      [x1, y1, x2, y2] = [x1 - dx, y1 - dy, x2 + dx, y2 + dy];
    }
    const gradient = this.context.createLinearGradient(x1, y1, x2, y2);
    addStops(gradient, stops, beyond);
    this.context.fillStyle = this.context.strokeStyle = gradient;
    this.state.gradientMap = map;
  }

  usePen() {
    const c = this.context;
    c.lineWidth = this.number();
    c.lineCap = CAPS[this.count()];
    c.lineJoin = JOINS[this.count()];
    this.state.pen = this.numbers(4);
    c.lineDashOffset = this.number();
    c.setLineDash(this.numbers(this.count()));
    c.miterLimit = 10;
  }

  /** Draws with the canvas's transform where the source, or the pen, has its own; paths stay where they are. */
  mapped(map, draw) {
    if (!map) return draw();
    this.context.setTransform(...map);
    draw();
    this.context.setTransform(1, 0, 0, 1, 0, 0);
  }

  fill(rule) {
    const c = this.context, mode = this.state.mode;
    if (mode === DESTINATION) return;
    if (mode !== CLEAR && mode !== SOURCE) {
      this.mapped(this.state.gradientMap, () => c.fill(rule));
      return;
    }
    // On a canvas these would reach as far as the clip.
    c.save();
    c.clip(rule);
    c.clearRect(0, 0, c.canvas.width, c.canvas.height);
    c.globalCompositeOperation = 'source-over';
    if (mode === SOURCE) this.mapped(this.state.gradientMap, () => c.fill(rule));
    c.restore();
  }

  stroke() {
    if (this.state.mode === DESTINATION) return;
    const map = this.state.gradientMap ?? [...this.state.pen, 0, 0];
    this.mapped(map, () => this.context.stroke());
  }

  fillRects() {
    const c = this.context, f = this.floats;
    let at = this.at + 1;
    const end = at + 4 * this.words[this.at];
    for (; at < end; at += 4) c.fillRect(f[at], f[at + 1], f[at + 2], f[at + 3]);
    this.at = end;
  }

  strokePolyline() {
    const c = this.context, f = this.floats;
    let at = this.at + 1, isInside = false;
    const end = at + 2 * this.words[this.at];
    c.beginPath();
    for (; at < end; at += 2) {
      const x = f[at], y = f[at + 1];
      if (!(Number.isFinite(x) && Number.isFinite(y))) isInside = false;
      else if (isInside) c.lineTo(x, y);
      else {
        c.moveTo(x, y);
        isInside = true;
      }
    }
    this.at = end;
    this.stroke();
  }

  /** Opaque marks are filled many at once, which shows the same; those that add up one by one. */
  fillMarks() {
    const c = this.context, f = this.floats;
    const radius = this.number(), end = this.at + 1 + 2 * this.words[this.at];
    const most = this.state.isOpaque ? MARKS_AT_ONCE : 1;
    let begun = 0;
    c.beginPath();
    for (let at = this.at + 1; at < end; at += 2) {
      const x = f[at], y = f[at + 1];
      if (!(Number.isFinite(x) && Number.isFinite(y))) continue;
      c.moveTo(x + radius, y);
      c.arc(x, y, radius, 0, 2 * Math.PI);
      if (++begun < most) continue;
      c.fill();
      c.beginPath();
      begun = 0;
    }
    if (begun > 0) c.fill();
    this.at = end;
  }

  useFont() {
    const size = this.number(), style = this.count(), family = this.text();
    const font = this.ruler.font(family, size, style);
    this.context.font = font.css;
    this.state.ascent = font.ascent;
  }

  fillText() {
    const c = this.context;
    const x = this.number(), top = this.number(), align = this.number();
    const map = this.numbers(6), text = this.text();
    c.textAlign = ALIGNS[align];
    c.textBaseline = 'alphabetic';
    c.setTransform(...map);
    c.fillText(text, x, top + this.state.ascent);
    c.setTransform(1, 0, 0, 1, 0, 0);
  }

  drawImage() {
    const c = this.context;
    const address = this.count(), width = this.count(), height = this.count();
    const opacity = this.number(), map = this.numbers(6);
    const key = `${address} ${width} ${height}`;
    const image = this.used.get(key) ?? this.images.get(key) ?? this.makeImage(address, width, height);
    this.used.set(key, image);
    c.globalAlpha = opacity;
    c.setTransform(...map);
    c.imageSmoothingEnabled = map[0] < 1 || map[3] < 1;
    c.drawImage(image, 0, 0);
    c.setTransform(1, 0, 0, 1, 0, 0);
    c.globalAlpha = 1;
  }

  makeImage(address, width, height) {
    const canvas = this.makeCanvas(width, height);
    const c = canvas.getContext('2d');
    const pixels = c.createImageData(width, height);
    const from = new Uint32Array(this.memory, address, width * height), to = pixels.data;
    for (let i = 0, at = 0; i < from.length; ++i, at += 4) {
      const pixel = from[i], alpha = pixel >>> 24;
      if (alpha === 0) continue;
      const share = 255 / alpha; // the module's colours are multiplied by alpha, a page's are not
      to[at] = ((pixel >>> 16) & 255) * share;
      to[at + 1] = ((pixel >>> 8) & 255) * share;
      to[at + 2] = (pixel & 255) * share;
      to[at + 3] = alpha;
    }
    c.putImageData(pixels, 0, 0);
    return canvas;
  }

  makeCanvas(width, height) {
    const canvas = this.canvas.ownerDocument.createElement('canvas');
    canvas.width = width;
    canvas.height = height;
    return canvas;
  }

  beginLayer() {
    this.beneath.push([this.context, this.state, this.stack]);
    const { width, height } = this.canvas;
    const layer = this.layers.pop() ?? this.makeCanvas(width, height);
    layer.width = width; // clears it, too
    layer.height = height;
    this.stack = [];
    this.start(layer.getContext('2d'));
  }

  endLayer() {
    const mode = this.count(), opacity = this.number();
    const layer = this.context.canvas;
    [this.context, this.state, this.stack] = this.beneath.pop();
    if (mode !== DESTINATION) {
      const c = this.context;
      c.save();
      c.globalCompositeOperation = mode === CLEAR ? 'copy' : COMPOSITIONS[mode];
      c.globalAlpha = mode === CLEAR ? 0 : opacity;
      c.drawImage(layer, 0, 0);
      c.restore();
    }
    this.layers.push(layer);
  }
}
