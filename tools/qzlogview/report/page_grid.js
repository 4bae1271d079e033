// The table. Only the rows in sight are elements.

const kGridColumns = [
  { key: '', name: '#' }, { key: 'time', name: 'Time' }, { key: 'type', name: 'Type' }, { key: 'grade', name: 'Severity' },
  { key: 'originator', name: 'Originator' }, { key: 'who', name: 'Who' }, { key: 'text', name: 'Text' },
];
const kTallest = 12_000_000; // pixels; browsers place nothing much further down
const kSpareRows = 4;

class Grid {
  // on: { sort(column), choose(row, isOpened) }
  constructor(data, on) {
    this.data = data;
    this.on = on;
    this.rows = new Uint32Array(0);
    this.current = -1; // place in rows
    this.pool = [];
    this.grid = document.getElementById('grid');
    this.viewport = document.getElementById('viewport');
    this.canvas = document.getElementById('canvas');
    this.head = document.getElementById('grid-head');
    this.makeHead();
    this.grid.setAttribute('aria-colcount', kGridColumns.length);
    this.viewport.addEventListener('scroll', () => this.drawSoon(), { passive: true });
    this.canvas.addEventListener('click', (event) => this.click(event));
    this.grid.addEventListener('keydown', (event) => this.key(event));
    new ResizeObserver(() => this.resized()).observe(this.viewport);
  }

  makeHead() {
    const row = element('div', 'row head');
    row.setAttribute('role', 'row');
    row.setAttribute('aria-rowindex', 1);
    this.heads = kGridColumns.map((column, place) => {
      const cell = element('div', `cell ${column.key || 'record'}`);
      cell.setAttribute('role', 'columnheader');
      cell.setAttribute('aria-colindex', place + 1);
      const button = element('button', '', column.name);
      button.type = 'button';
      button.title = column.key === '' ? 'In the order of the log' : `Sort by ${column.name.toLowerCase()}`;
      button.addEventListener('click', () => this.on.sort(column.key));
      cell.append(button);
      row.append(cell);
      return cell;
    });
    this.head.append(row);
  }

  show(rows, state, zone) {
    const row = this.current >= 0 ? this.rows[this.current] : state.row;
    this.rows = rows;
    this.zone = zone;
    this.grid.setAttribute('aria-rowcount', rows.length + 1);
    this.heads.forEach((cell, place) => {
      const sorted = kGridColumns[place].key === state.sort.column;
      cell.setAttribute('aria-sort', !sorted ? 'none' : state.sort.down ? 'descending' : 'ascending');
    });
    this.current = row === null ? -1 : rows.indexOf(row);
    for (const item of this.pool) item.row = -1;
    this.resized();
    if (this.current >= 0) this.reveal();
  }

  resized() {
    this.rowHeight = parseFloat(getComputedStyle(this.grid).getPropertyValue('--row-height'));
    this.inSight = Math.max(Math.floor(this.viewport.clientHeight / this.rowHeight), 1);
    // The scroll bar takes its room from the rows, not from their heading.
    this.head.style.paddingRight = `${this.viewport.offsetWidth - this.viewport.clientWidth}px`;
    this.canvas.style.height = `${Math.min(this.rows.length * this.rowHeight, kTallest)}px`;
    this.draw();
  }

  // ---- where rows stand. Above kTallest the way of the scroll bar stands for more rows than it has pixels.

  get isScaled() {
    return this.rows.length * this.rowHeight > kTallest;
  }

  get scrollEnd() {
    return Math.max(this.canvas.offsetHeight - this.viewport.clientHeight, 1);
  }

  topRow() {
    const at = this.viewport.scrollTop;
    if (!this.isScaled) return at / this.rowHeight;
    if (this.wantedTop !== undefined && Math.abs(at - this.wantedTop.at) < 1) return this.wantedTop.row;
    return (at / this.scrollEnd) * (this.rows.length - this.inSight);
  }

  scrollToRow(row) {
    const top = Math.max(Math.min(row, this.rows.length - this.inSight), 0);
    this.viewport.scrollTop = this.isScaled ? (top / (this.rows.length - this.inSight)) * this.scrollEnd
      : top * this.rowHeight;
    this.wantedTop = { row: top, at: this.viewport.scrollTop };
    this.draw();
  }

  reveal() {
    const top = this.topRow();
    if (this.current < top) this.scrollToRow(this.current);
    else if (this.current > top + this.inSight - 1) this.scrollToRow(this.current - this.inSight + 1);
    else this.draw();
  }

  // ---- drawing

  drawSoon() {
    if (this.isDrawing) return;
    this.isDrawing = true;
    requestAnimationFrame(() => {
      this.isDrawing = false;
      this.draw();
    });
  }

  draw() {
    const top = this.topRow();
    const first = Math.max(Math.floor(top) - kSpareRows, 0);
    const last = Math.min(Math.ceil(top) + this.inSight + kSpareRows, this.rows.length);
    const shift = this.viewport.scrollTop - top * this.rowHeight;
    while (this.pool.length < last - first) this.pool.push(this.makeRow());
    this.pool.forEach((item, i) => {
      const place = first + i;
      item.element.hidden = place >= last;
      if (place < last) this.fillRow(item, place, shift + place * this.rowHeight);
    });
    const isInSight = this.current >= first && this.current < last;
    if (isInSight) this.grid.setAttribute('aria-activedescendant', this.pool[this.current - first].element.id);
    else this.grid.removeAttribute('aria-activedescendant');
  }

  makeRow() {
    const row = element('div', 'row');
    row.id = `row-${this.pool.length}`;
    row.setAttribute('role', 'row');
    const cells = kGridColumns.map((column, place) => {
      const cell = element('div', `cell ${column.key || 'record'}`);
      cell.setAttribute('role', 'gridcell');
      cell.setAttribute('aria-colindex', place + 1);
      return cell;
    });
    row.append(...cells);
    this.canvas.append(row);
    return { element: row, cells, row: -1 };
  }

  fillRow(item, place, y) {
    const { element: to, cells } = item;
    const row = this.rows[place];
    to.style.transform = `translateY(${y}px)`;
    to.setAttribute('aria-selected', place === this.current);
    to.classList.toggle('odd', place % 2 === 1);
    to.setAttribute('aria-rowindex', place + 2);
    item.place = place;
    if (item.row === row) return;
    item.row = row;
    fillCells(cells, this.data, row, this.zone);
  }

  // ---- choosing

  click(event) {
    const clicked = event.target.closest('.row');
    const item = this.pool.find((candidate) => candidate.element === clicked);
    if (item === undefined || String(getSelection()) !== '') return;
    this.grid.focus({ preventScroll: true });
    this.choose(item.place, true);
  }

  choose(place, isOpened) {
    if (this.rows.length === 0) return;
    this.current = Math.max(Math.min(place, this.rows.length - 1), 0);
    this.reveal();
    this.on.choose(this.rows[this.current], isOpened);
  }

  // One further, or the first one.
  move(by) {
    this.choose(this.current < 0 ? Math.round(this.topRow()) : this.current + by, false);
  }

  forget() {
    this.current = -1;
    this.draw();
  }

  key(event) {
    if (event.target !== this.grid || event.ctrlKey || event.altKey || event.metaKey) return;
    const page = Math.max(this.inSight - 1, 1);
    const actions = {
      ArrowDown: () => this.move(1), ArrowUp: () => this.move(-1),
      PageDown: () => this.move(page), PageUp: () => this.move(-page),
      Home: () => this.choose(0, false), End: () => this.choose(this.rows.length - 1, false),
      Enter: () => this.choose(Math.max(this.current, 0), true),
    };
    const action = actions[event.key];
    if (action === undefined) return;
    event.preventDefault();
    action();
  }
}

function fillCells(cells, data, row, zone) {
  const { columns } = data;
  const [record, time, type, grade, originator, who, text] = cells;
  record.textContent = number(row + 1);
  time.textContent = timeText(columns.time[row], zone);
  type.textContent = typeName(columns.type[row]);
  const { key, name } = data.grades[columns.grade[row]];
  grade.textContent = key === 'none' ? '' : name;
  grade.dataset.grade = key;
  setText(originator, originatorName(data, columns.originator[row]));
  setText(who, data.texts[columns.who[row]]);
  setText(text, summaryOf(data, row));
}
