// The records, column by column, out of the page's data blocks.

const kNumberColumns = ['time', 'type', 'level', 'originator', 'fid', 'sequence', 'process', 'thread', 'outcome',
  'message', 'file', 'offset'];
const kTextColumns = ['token', 'text', 'who', 'context', 'arguments'];

// Gives every different item a number, and keeps the items by it.
class Pool {
  constructor() {
    this.items = [];
    this.places = new Map();
  }

  add(key, item) {
    let place = this.places.get(key);
    if (place === undefined) {
      place = this.items.length;
      this.places.set(key, place);
      this.items.push(item);
    }
    return place;
  }
}

function jsonOf(element) {
  try {
    return JSON.parse(element.textContent);
  } catch {
    return null; // a page that was cut short
  }
}

function readBlocks() {
  const elements = [...document.querySelectorAll('script.records')];
  const blocks = elements.map(jsonOf);
  for (const element of elements) element.remove(); // frees its text
  return { blocks: blocks.filter((block) => block !== null), damaged: blocks.includes(null) };
}

// Appends a block's column to `to`; `map` leads from the block's numbers to the page's.
function copyColumn(to, start, count, values, map) {
  if (!Array.isArray(values)) {
    to.fill(map ? map[values] : values, start, start + count);
  } else if (map) {
    for (let i = 0; i < count; ++i) to[start + i] = map[values[i]];
  } else {
    to.set(values, start);
  }
}

function emptyColumns(count) {
  const columns = {};
  for (const name of kNumberColumns) columns[name] = new Float64Array(count);
  for (const name of kTextColumns) columns[name] = new Uint32Array(count);
  return columns;
}

function readRecords() {
  const { blocks, damaged } = readBlocks();
  const count = blocks.reduce((sum, block) => sum + block.records, 0);
  const columns = emptyColumns(count);
  const texts = new Pool();
  const files = new Pool();
  const originators = new Pool();
  texts.add('', '');
  let start = 0;
  for (const block of blocks) {
    const textMap = block.texts.map((text) => texts.add(text, text));
    const maps = {
      file: block.files.map((file) => files.add(file[0], file)),
      originator: block.originators.map((item) => originators.add(`${item[0]}.${item[1]}`, item)),
    };
    for (const name of kNumberColumns) copyColumn(columns[name], start, block.records, block[name], maps[name]);
    for (const name of kTextColumns) copyColumn(columns[name], start, block.records, block[name], textMap);
    start += block.records;
  }
  return { count, columns, texts: texts.items, files: files.items, originators: originators.items, damaged };
}

const kTypeNames = ['debug', 'diagnostic', 'application', 'context', 'audit', 'secure-audit'];
const kSeverityNames = ['information', 'warning', 'error', 'severe', 'fatal'];

function typeName(type) {
  return kTypeNames[type] ?? `type ${type}`;
}

// A grade is what messages of different types have in its place: a severity, a level, or nothing. `rank` sorts
// them, the gravest highest.
function gradeOf(type, level) {
  if (type === 2) return { key: `s${level}`, name: kSeverityNames[level] ?? `severity ${level}`, rank: 1e10 + level, type };
  if (type < 2) return { key: `l${level}`, name: `level ${level}`, rank: -level, type };
  return { key: 'none', name: 'none', rank: -1e10, type };
}

// Adds the column `grade`, and the lists of grades and types with the number of their records.
function addGrades(data) {
  const { type, level } = data.columns;
  const grades = new Pool();
  const types = new Map();
  data.columns.grade = new Uint32Array(data.count);
  for (let i = 0; i < data.count; ++i) {
    const key = type[i] === 2 ? `s${level[i]}` : type[i] < 2 ? `l${level[i]}` : 'none';
    const place = grades.places.get(key) ?? grades.add(key, { ...gradeOf(type[i], level[i]), count: 0 });
    data.columns.grade[i] = place;
    ++grades.items[place].count;
    types.set(type[i], (types.get(type[i]) ?? 0) + 1);
  }
  data.grades = grades.items;
  data.types = [...types].sort((a, b) => a[0] - b[0])
    .map(([number, records]) => ({ key: String(number), number, name: typeName(number), count: records }));
}

// Titles of contexts by their tokens, as far as their beginning was selected.
function contextTitles(data) {
  const titles = new Map();
  const { type, context, text } = data.columns;
  for (let i = 0; i < data.count; ++i) {
    if (type[i] === 3) titles.set(context[i], text[i]);
  }
  return titles;
}

function readReport() {
  const info = jsonOf(document.getElementById('report')) ?? { title: '', selection: '', zones: [] };
  const end = document.getElementById('end');
  const data = readRecords();
  addGrades(data);
  data.info = info;
  data.titles = contextTitles(data);
  data.isComplete = !data.damaged && end !== null && jsonOf(end)?.records === data.count;
  return data;
}

// [[kind, value], ...]; a value is a text, or such a list for nested arguments.
function argumentsOf(data, row) {
  const json = data.texts[data.columns.arguments[row]];
  return json === '' ? [] : JSON.parse(json);
}

function argumentValues(list) {
  return list.map(([, value]) => (Array.isArray(value) ? `(${argumentValues(value)})` : value)).join(', ');
}

// What a row shows: catalog messages come without a text when nobody had their catalog.
function summaryOf(data, row) {
  const text = data.texts[data.columns.text[row]];
  if (text !== '' || (data.columns.message[row] === 0 && data.columns.arguments[row] === 0)) return text;
  const values = argumentValues(argumentsOf(data, row));
  const message = data.columns.message[row];
  return message === 0 ? values : `message ${message}: ${values}`;
}

function originatorName(data, place) {
  const [product, originator, productName, name] = data.originators[place];
  return `${productName || product} / ${name || originator}`;
}
