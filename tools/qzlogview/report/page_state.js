// What the reader has chosen, in the address after #: a copied address shows the same again.

function initialState(zones) {
  return { text: '', who: '', originator: '', types: new Set(), grades: new Set(), from: null, to: null, view: null,
    sort: { column: '', down: false }, stack: 'grade', zone: zones[0].key, row: null };
}

function hasFilter(state) {
  return state.text !== '' || state.who !== '' || state.originator !== '' || state.types.size > 0
    || state.grades.size > 0 || state.from !== null;
}

// What is as it was in the beginning is left out.
function hashOf(state, zones) {
  const values = new URLSearchParams();
  const put = (name, value) => { if (value) values.set(name, value); };
  put('text', state.text);
  put('who', state.who);
  put('originator', state.originator);
  put('types', [...state.types].join(','));
  put('severity', [...state.grades].join(','));
  if (state.from !== null) put('range', `${state.from},${state.to}`);
  if (state.view !== null) put('zoom', state.view.join(','));
  put('sort', state.sort.column === '' && !state.sort.down ? '' : (state.sort.down ? '-' : '') + state.sort.column);
  put('stack', state.stack === 'type' ? 'type' : '');
  put('zone', state.zone === zones[0].key ? '' : state.zone);
  put('record', state.row === null ? '' : String(state.row + 1));
  return values.toString();
}

function timesOf(text) {
  const times = (text ?? '').split(',').map(Number);
  return times.length === 2 && times.every(Number.isFinite) && times[0] < times[1] ? times : null;
}

// An address may come from anybody: what does not fit this report is dropped.
function stateOf(hash, data, zones) {
  const values = new URLSearchParams(hash.replace(/^#/, ''));
  const state = initialState(zones);
  const known = (name, keys) => new Set((values.get(name) ?? '').split(',').filter((key) => keys.includes(key)));
  state.text = values.get('text') ?? '';
  state.who = values.get('who') ?? '';
  state.types = known('types', data.types.map((type) => type.key));
  state.grades = known('severity', data.grades.map((grade) => grade.key));
  const originator = values.get('originator');
  if (data.originators.some((item) => `${item[0]}.${item[1]}` === originator)) state.originator = originator;
  [state.from, state.to] = timesOf(values.get('range')) ?? [null, null];
  state.view = timesOf(values.get('zoom'));
  const sort = values.get('sort') ?? '';
  const column = sort.replace(/^-/, '');
  if (column === '' || kGridColumns.some((item) => item.key === column)) {
    state.sort = { column, down: sort.startsWith('-') };
  }
  if (values.get('stack') === 'type') state.stack = 'type';
  if (zones.some((zone) => zone.key === values.get('zone'))) state.zone = values.get('zone');
  const row = Number(values.get('record')) - 1;
  if (Number.isInteger(row) && row >= 0 && row < data.count) state.row = row;
  return state;
}
