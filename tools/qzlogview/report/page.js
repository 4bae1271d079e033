// The page as a whole: what is chosen leads to what is shown.

const byId = (id) => document.getElementById(id);
const data = readReport();
const zones = zonesOf(data.info);
const filter = new Filter(data);
let state = stateOf(location.hash, data, zones);
let shown = new Uint32Array(0);

const chart = new Chart(data, (from, to) => update({ from, to }));
const grid = new Grid(data, { sort: sortBy, choose: chooseRow });

function zone() {
  return zones.find((item) => item.key === state.zone);
}

// Shows the state once more, with some of it changed.
function update(changes) {
  state = { ...state, ...changes };
  const marks = filter.marks(state);
  shown = filter.rows(marks, state.sort);
  grid.show(shown, state, zone());
  chart.show(marks, state, zone());
  showCounts();
  showOpenRow();
  saveSoon();
}

function showCounts() {
  const [all, some] = [number(data.count), number(shown.length)];
  const range = state.from === null ? ''
    : ` from ${shortTimeText(state.from, zone())} to ${shortTimeText(state.to, zone())}`;
  byId('count').textContent = `${some === all ? all : `${some} of ${all}`} ${data.count === 1 ? 'record' : 'records'}${range}`;
  byId('empty').textContent = data.count === 0 ? 'No record was selected.' : 'No record matches the filters.';
  byId('empty').hidden = shown.length > 0;
  byId('clear').disabled = !hasFilter(state);
  byId('zoom').hidden = state.from === null;
  byId('whole').hidden = state.view === null;
}

// ---- the open record

const details = { move: (by) => grid.move(by), close: () => closeRow() };

function showOpenRow() {
  byId('details').hidden = state.row === null;
  document.body.classList.toggle('has-details', state.row !== null);
  if (state.row !== null) showDetails(byId('details'), data, state.row, zone(), details);
}

function chooseRow(row, isOpened) {
  if (state.row === null && !isOpened) return;
  state.row = row;
  showOpenRow();
  grid.reveal();
  saveSoon();
}

function closeRow() {
  state.row = null;
  showOpenRow();
  byId('grid').focus({ preventScroll: true });
  saveSoon();
}

function sortBy(column) {
  const down = state.sort.column === column && !state.sort.down;
  update({ sort: { column, down } });
}

// ---- the filters' controls

function fillFacets(id, items, chosen, name) {
  for (const item of items) {
    const label = element('label', 'chip');
    const box = element('input');
    box.type = 'checkbox';
    box.value = item.key;
    box.addEventListener('change', () => {
      const next = new Set(state[chosen]);
      if (box.checked) next.add(item.key);
      else next.delete(item.key);
      update({ [chosen]: next });
    });
    label.append(box, element('span', '', name(item)), element('span', 'tally', number(item.count)));
    byId(id).append(label);
  }
  byId(id).hidden = items.length === 0;
}

function fillOption(select, value, text) {
  const option = element('option', '', plainText(text));
  option.value = value;
  byId(select).append(option);
}

function fillControls() {
  byId('title').textContent = plainText(data.info.title) || 'Log records';
  document.title = byId('title').textContent;
  byId('selection').textContent = plainText(data.info.selection);
  for (const item of zones) fillOption('zone', item.key, item.name);
  fillOption('originator', '', 'all');
  data.originators.forEach((item, place) => fillOption('originator', `${item[0]}.${item[1]}`, originatorName(data, place)));
  fillFacets('types', data.types, 'types', (type) => type.name);
  const grades = [...data.grades].sort((a, b) => b.rank - a.rank);
  fillFacets('grades', grades, 'grades', (grade) => grade.name);
  const names = [...new Set(data.columns.who)].map((place) => data.texts[place]).filter((name) => name !== '');
  for (const name of names.slice(0, 500).sort()) fillOption('who-list', plainText(name), '');
  byId('notice').hidden = data.isComplete;
  byId('notice').textContent = data.isComplete ? '' : 'This page is incomplete: it was cut short while it was written or copied.';
}

function showControls() {
  for (const id of ['text', 'who', 'originator', 'zone', 'stack']) {
    if (byId(id).value !== state[id]) byId(id).value = state[id];
  }
  for (const box of document.querySelectorAll('#types input')) box.checked = state.types.has(box.value);
  for (const box of document.querySelectorAll('#grades input')) box.checked = state.grades.has(box.value);
}

let typing;
function afterTyping(action) {
  clearTimeout(typing);
  typing = setTimeout(action, 80);
}

function listen() {
  for (const id of ['text', 'who']) {
    byId(id).addEventListener('input', () => afterTyping(() => update({ [id]: byId(id).value })));
  }
  for (const id of ['originator', 'zone', 'stack']) {
    byId(id).addEventListener('change', () => update({ [id]: byId(id).value }));
  }
  byId('zoom').addEventListener('click', () => update({ view: [state.from, state.to], from: null, to: null }));
  byId('whole').addEventListener('click', () => update({ view: null }));
  byId('clear').addEventListener('click', clearFilters);
  document.addEventListener('keydown', pressKey);
  window.addEventListener('hashchange', restore);
  window.addEventListener('beforeprint', () => fillPrint(data, shown, zone()));
  window.addEventListener('afterprint', clearPrint);
}

function clearFilters() {
  update({ text: '', who: '', originator: '', types: new Set(), grades: new Set(), from: null, to: null });
  showControls();
  byId('text').focus();
}

// ---- keys that work everywhere

function isTextField(target) {
  return target instanceof HTMLInputElement && target.type === 'search';
}

function pressKey(event) {
  if (event.defaultPrevented || event.ctrlKey || event.altKey || event.metaKey) return;
  if (event.key === '/' && !isTextField(event.target)) {
    event.preventDefault();
    byId('text').focus();
    byId('text').select();
  } else if (event.key === 'Escape') {
    event.preventDefault();
    goBack(event.target);
  } else if (isTextField(event.target) && (event.key === 'Enter' || (event.key === 'ArrowDown' && event.target.id === 'text'))) {
    event.preventDefault();
    byId('grid').focus();
  }
}

// One step: empties a field or leaves it, closes the details, drops the range.
function goBack(target) {
  if (isTextField(target)) {
    if (target.value === '') byId('grid').focus();
    clearTimeout(typing);
    target.value = '';
    if (state[target.id] !== '') update({ [target.id]: '' });
  } else if (state.row !== null) {
    closeRow();
  } else if (state.from !== null) {
    update({ from: null, to: null });
  }
}

// ---- the address

let saving;
function saveSoon() {
  clearTimeout(saving);
  saving = setTimeout(() => {
    const hash = hashOf(state, zones);
    if (hash !== location.hash.slice(1)) history.replaceState(null, '', `#${hash}`);
  }, 150);
}

function restore() {
  const next = stateOf(location.hash, data, zones);
  grid.forget();
  update(next);
  showControls();
}

fillControls();
listen();
showControls();
update({});
document.documentElement.dataset.ready = 'true';
