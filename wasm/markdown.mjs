// As much of Markdown as the pages of docs/ use: headings, paragraphs, lists, tables, code and links.

export const escape = (text) => text.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/"/g, '&quot;');

function inline(text) {
  return text.split(/(`[^`]*`)/).map((piece) => piece.startsWith('`')
    ? `<code>${escape(piece.slice(1, -1))}</code>`
    : escape(piece).replace(/\[([^\]]*)\]\((#[^)]*)\)/g, '<a href="$2">$1</a>').replace(/\[([^\]]*)\]\([^)]*\)/g, '$1')
      .replace(/\*([^*]+)\*/g, '<em>$1</em>')).join('');
}

function table(lines) {
  const cells = (line) => line.replace(/^\||\|$/g, '').split(/(?<!\\)\|/).map((cell) => inline(cell.trim().replace(/\\\|/g, '|')));
  const row = (line, name) => `<tr>${cells(line).map((cell) => `<${name}>${cell}</${name}>`).join('')}</tr>`;
  return `<table>${row(lines[0], 'th')}${lines.slice(2).map((line) => row(line, 'td')).join('')}</table>`;
}

/** @return the page's blocks as {heading, html}; heading is empty for what is none */
export function readMarkdown(text) {
  const blocks = [];
  const rest = text.replace(/\r/g, '').split('\n');
  const take = (belongs) => {
    const lines = [];
    while (rest.length > 0 && belongs(rest[0])) lines.push(rest.shift());
    return lines;
  };
  while (rest.length > 0) {
    const line = rest[0], found = line.match(/^(#+) (.*)/);
    if (line.trim() === '') {
      rest.shift();
    } else if (found) {
      rest.shift();
      const [, marks, heading] = found;
      const id = heading.toLowerCase().replace(/[^\w -]/g, '').replace(/ /g, '-');
      blocks.push({ heading, html: `<h${marks.length} id="${id}">${inline(heading)}</h${marks.length}>` });
    } else if (line.startsWith('```')) {
      rest.shift();
      const code = take((each) => !each.startsWith('```'));
      rest.shift();
      blocks.push({ heading: '', html: `<pre>${escape(code.join('\n'))}</pre>` });
    } else if (line.startsWith('|')) {
      blocks.push({ heading: '', html: table(take((each) => each.startsWith('|'))) });
    } else if (line.startsWith('- ')) {
      const items = take((each) => /^(- |  )/.test(each)).join('\n').split(/^- /m).filter(Boolean);
      blocks.push({ heading: '', html: `<ul>${items.map((item) => `<li>${inline(item)}</li>`).join('')}</ul>` });
    } else {
      const lines = take((each) => each.trim() !== '' && !/^(#|\||```|- )/.test(each));
      blocks.push({ heading: '', html: `<p>${inline(lines.join('\n'))}</p>` });
    }
  }
  return blocks;
}
