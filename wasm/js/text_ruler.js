// Measures pieces of text as the page draws them, and remembers what it measured.

/** Texts that are remembered for a font; a page with more begins anew. */
const MOST_TEXTS = 8192;

export const DEFAULT_FAMILY = "Roboto, 'Helvetica Neue', Arial, 'DejaVu Sans', sans-serif";

export class TextRuler {
  /** @param document of the page, null where nothing is drawn @param family in place of "Default", CSS */
  constructor(document, family = DEFAULT_FAMILY) {
    this.context = document ? document.createElement('canvas').getContext('2d') : null;
    this.family = family;
    this.forget();
  }

  /** Fonts have come: everything is measured anew. */
  forget() {
    this.fonts = new Map();
    this.current = '';
  }

  /** @return {css, ascent, height, widths} of a font; lengths in units of size */
  font(family, size, style) {
    const key = `${style} ${size} ${family}`;
    return this.fonts.get(key) ?? this.addFont(key, family, size, style);
  }

  addFont(key, family, size, style) {
    const name = family === '' || family === 'Default' ? this.family : `'${family.replace(/[\\']/g, '\\$&')}', sans-serif`;
    const css = `${style & 2 ? 'italic ' : ''}${style & 1 ? 'bold ' : ''}${size}px ${name}`;
    const font = { css, ascent: 0.94 * size, height: 1.17 * size, widths: new Map() };
    if (this.context) {
      this.select(font);
      const { fontBoundingBoxAscent: up, fontBoundingBoxDescent: down } = this.context.measureText('x');
      if (up + down > 0) Object.assign(font, { ascent: up, height: up + down });
    }
    this.fonts.set(key, font);
    return font;
  }

  select(font) {
    if (this.current === font.css) return;
    this.context.font = this.current = font.css;
  }

  width(text, family, size, style) {
    const font = this.font(family, size, style);
    let width = font.widths.get(text);
    if (width !== undefined) return width;
    if (font.widths.size >= MOST_TEXTS) font.widths.clear();
    if (!this.context) return 0.54 * size * text.length;
    this.select(font);
    width = this.context.measureText(text).width;
    font.widths.set(text, width);
    return width;
  }

  lineHeight(family, size, style) { return this.font(family, size, style).height; }
}
