// The histogram: stacked bars over time, and the range that is chosen on it.

const kMargin = { left: 52, right: 12, top: 8, bottom: 22 };
const kPatterned = { s3: 'M0 6 6 0', s1: 'M3 0 3 6', level: 'M0 3 6 3', none: 'M3 3 3.1 3', 'type-0': 'M0 6 6 0',
  'type-1': 'M0 3 6 3', 'type-4': 'M3 0 3 6', 'type-5': 'M0 0 6 6', other: 'M3 3 3.1 3' };

function svg(name, attributes = {}, className = '') {
  const made = document.createElementNS('http://www.w3.org/2000/svg', name);
  for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
  if (className) made.setAttribute('class', className);
  return made;
}

// Colours are told apart by lines and dots too.
function patterns() {
  const made = svg('defs');
  for (const [look, path] of Object.entries(kPatterned)) {
    const pattern = svg('pattern', { id: `pattern-${look}`, width: 6, height: 6, patternUnits: 'userSpaceOnUse' });
    pattern.append(svg('rect', { width: 6, height: 6 }, `fill-${look}`), svg('path', { d: path }, 'pattern-line'));
    made.append(pattern);
  }
  return made;
}

function paint(shape, look) {
  if (look in kPatterned) shape.setAttribute('fill', `url(#pattern-${look})`);
  else shape.classList.add(`fill-${look}`);
  return shape;
}

// At most the value, and round.
function roundBelow(value) {
  const power = 10 ** Math.floor(Math.log10(Math.max(value, 1)));
  return [5, 2, 1].map((n) => n * power).find((candidate) => candidate <= value) ?? 1;
}

class Chart {
  // choose(from, to) is told the range, nulls for none.
  constructor(data, choose) {
    this.data = data;
    this.choose = choose;
    this.box = document.getElementById('chart');
    this.bars = document.getElementById('bars');
    this.tip = document.getElementById('tip');
    this.from = document.getElementById('handle-from');
    this.to = document.getElementById('handle-to');
    this.box.addEventListener('pointerdown', (event) => this.startDrag(event));
    this.box.addEventListener('pointermove', (event) => this.showTip(event));
    this.box.addEventListener('pointerleave', () => { this.tip.hidden = true; });
    this.box.addEventListener('dblclick', () => this.choose(null, null));
    for (const handle of [this.from, this.to]) {
      handle.addEventListener('keydown', (event) => this.moveByKey(event, handle));
    }
    new ResizeObserver(() => { if (this.bins && this.box.clientWidth !== this.width) this.draw(); }).observe(this.box);
  }

  // `marks` as Filter makes them.
  show(marks, state, zone) {
    const span = state.view ?? spanOf(this.data.columns.time);
    this.box.classList.toggle('is-empty', span === null);
    this.bins = span === null ? null : binsOf(span[0], state.view ? span[1] - 1 : span[1], zone);
    this.stacking = seriesOf(this.data, state.stack);
    this.zone = zone;
    this.range = [state.from, state.to];
    this.counts = this.bins && countBins(this.data, marks, this.bins, this.stacking);
    this.tip.hidden = true;
    this.showLegend();
    this.draw();
  }

  get end() {
    return this.bins.start + this.bins.step * this.bins.count;
  }

  x(time) {
    const part = (time - this.bins.start) / (this.end - this.bins.start);
    return kMargin.left + Math.min(Math.max(part, 0), 1) * this.plotWidth;
  }

  // The bin border nearest to a place on the screen.
  borderAt(clientX) {
    const part = (clientX - this.box.getBoundingClientRect().left - kMargin.left) / this.plotWidth;
    const border = Math.round(Math.min(Math.max(part, 0), 1) * this.bins.count);
    return this.bins.start + border * this.bins.step;
  }

  binAt(clientX) {
    const part = (clientX - this.box.getBoundingClientRect().left - kMargin.left) / this.plotWidth;
    return part < 0 || part >= 1 ? -1 : Math.floor(part * this.bins.count);
  }

  // ---- drawing

  draw() {
    this.bars.replaceChildren(patterns());
    if (this.bins === null) return;
    this.width = this.box.clientWidth;
    this.height = this.box.clientHeight;
    this.plotWidth = Math.max(this.width - kMargin.left - kMargin.right, 10);
    this.plotHeight = this.height - kMargin.top - kMargin.bottom;
    this.bars.setAttribute('viewBox', `0 0 ${this.width} ${this.height}`);
    this.drawScale();
    this.drawBars();
    this.drawTimes();
    this.drawRange();
  }

  binTotal(bin) {
    const parts = this.stacking.series.length;
    let total = 0;
    for (let part = 0; part < parts; ++part) total += this.counts[bin * parts + part];
    return total;
  }

  drawScale() {
    let most = 0;
    let total = 0;
    for (let bin = 0; bin < this.bins.count; ++bin) {
      const count = this.binTotal(bin);
      total += count;
      most = Math.max(most, count);
    }
    this.most = Math.max(most, 1);
    const base = kMargin.top + this.plotHeight;
    const line = roundBelow(this.most);
    for (const value of this.most > 1 ? [0, line] : [0, 1]) {
      const y = base - (value / this.most) * this.plotHeight;
      this.bars.append(svg('path', { d: `M${kMargin.left} ${y}H${kMargin.left + this.plotWidth}` }, 'rule'));
      const label = svg('text', { x: kMargin.left - 6, y: y + 4, 'text-anchor': 'end' });
      label.textContent = number(value);
      this.bars.append(label);
    }
    this.bars.setAttribute('aria-label', `${number(total)} messages over time, at most ${number(most)} in ${this.stepText()}`);
  }

  stepText() {
    const units = [[kDay, 'day'], [3600 * kSecond, 'hour'], [60 * kSecond, 'minute'], [kSecond, 'second'], [1, 'millisecond']];
    const [size, name] = units.find(([unit]) => this.bins.step % unit === 0);
    const count = this.bins.step / size;
    return count === 1 ? `one ${name}` : `${number(count)} ${name}s`;
  }

  drawBars() {
    const { series } = this.stacking;
    const width = this.plotWidth / this.bins.count;
    const gap = width > 4 ? 1 : 0;
    for (let bin = 0; bin < this.bins.count; ++bin) {
      let y = kMargin.top + this.plotHeight;
      series.forEach(({ look }, part) => {
        const count = this.counts[bin * series.length + part];
        if (count === 0) return;
        // One severe message among thousands is to be seen.
        const height = Math.max((count / this.most) * this.plotHeight, 1.5);
        y -= height;
        const x = kMargin.left + bin * width;
        this.bars.append(paint(svg('rect', { x, y, width: Math.max(width - gap, 0.5), height }, 'bar'), look));
      });
    }
  }

  drawTimes() {
    const span = this.end - this.bins.start;
    const step = stepFor(span, Math.max(this.plotWidth / 105, 1));
    const y = this.height - 6;
    let lastDate = '';
    let time = floorTo(this.bins.start, step, this.zone.offset(this.bins.start));
    for (; time <= this.end; time += step) {
      if (time < this.bins.start) continue;
      const x = this.x(time);
      const date = dateText(time, this.zone);
      const text = this.tickText(time, step, date !== lastDate);
      lastDate = date;
      this.bars.append(svg('path', { d: `M${x} ${this.height - kMargin.bottom}v5` }, 'rule'));
      if (x > this.width - 45) continue;
      const label = svg('text', { x, y, 'text-anchor': x < kMargin.left + 20 ? 'start' : 'middle' });
      label.textContent = text;
      this.bars.append(label);
    }
  }

  // The date is said where it begins.
  tickText(time, step, isNewDate) {
    const date = dateText(time, this.zone);
    if (step >= kDay) return date;
    const clock = timeOfDay(time, this.zone, step);
    if (!isNewDate) return clock;
    return clock.startsWith('00:00') ? date : `${date.slice(-5)} ${clock}`;
  }

  drawRange() {
    const [from, to] = [this.range[0] ?? this.bins.start, this.range[1] ?? this.end];
    const [left, right] = [this.x(from), this.x(to)];
    const before = document.getElementById('shade-before').style;
    const after = document.getElementById('shade-after').style;
    before.left = `${kMargin.left}px`;
    before.width = `${left - kMargin.left}px`;
    after.left = `${right}px`;
    after.width = `${kMargin.left + this.plotWidth - right}px`;
    this.placeHandle(this.from, left, from);
    this.placeHandle(this.to, right, to);
    this.box.classList.toggle('has-range', this.range[0] !== null);
  }

  placeHandle(handle, x, time) {
    handle.style.left = `${x}px`;
    handle.setAttribute('aria-valuemin', this.bins.start);
    handle.setAttribute('aria-valuemax', this.end);
    handle.setAttribute('aria-valuenow', time);
    handle.setAttribute('aria-valuetext', timeText(time, this.zone));
  }

  showLegend() {
    const legend = document.getElementById('legend');
    legend.replaceChildren(...this.stacking.series.map(({ name, look }) => {
      const item = element('li');
      const swatch = svg('svg', { viewBox: '0 0 12 12', 'aria-hidden': 'true' }, 'swatch');
      swatch.append(paint(svg('rect', { width: 12, height: 12 }), look));
      item.append(swatch, name);
      return item;
    }));
  }

  // ---- pointer

  showTip(event) {
    const bin = this.bins === null ? -1 : this.binAt(event.clientX);
    this.tip.hidden = bin < 0;
    if (bin < 0) return;
    const start = this.bins.start + bin * this.bins.step;
    const { series } = this.stacking;
    const list = element('dl');
    series.forEach(({ name }, part) => {
      const count = this.counts[bin * series.length + part];
      if (count > 0) list.append(element('dt', '', name), element('dd', '', number(count)));
    });
    const exact = this.bins.step < kSecond ? 23 : this.bins.step < 60 * kSecond ? 19 : 16;
    const title = element('strong', '', `${timeText(start, this.zone).slice(0, exact)}, ${this.stepText()}`);
    this.tip.replaceChildren(title, element('div', '', `${number(this.binTotal(bin))} messages`), list);
    const x = event.clientX - this.box.getBoundingClientRect().left;
    this.tip.style.left = `${Math.max(0, Math.min(x + 14, this.width - this.tip.offsetWidth))}px`;
  }

  // Drags a border, moves the range, or draws a new one; a mere click chooses the bar.
  startDrag(event) {
    if (event.button !== 0 || this.bins === null) return;
    event.preventDefault();
    const fixed = this.fixedBorder(event.target);
    const start = this.borderAt(event.clientX);
    const inside = fixed === null && this.range[0] !== null && start > this.range[0] && start < this.range[1];
    const range = [...this.range];
    let moved = false;
    const move = (next) => {
      moved ||= Math.abs(next.clientX - event.clientX) > 3;
      if (!moved) return;
      const at = this.borderAt(next.clientX);
      if (inside) this.choose(range[0] + at - start, range[1] + at - start);
      else this.chooseBetween(fixed ?? start, at);
    };
    const stop = () => {
      this.box.removeEventListener('pointermove', move);
      this.box.removeEventListener('pointerup', stop);
      this.box.removeEventListener('pointercancel', stop);
      if (!moved && fixed === null && event.detail < 2) this.chooseBin(this.binAt(event.clientX));
    };
    this.box.setPointerCapture(event.pointerId);
    this.box.addEventListener('pointermove', move);
    this.box.addEventListener('pointerup', stop);
    this.box.addEventListener('pointercancel', stop);
    if (fixed !== null) event.target.focus();
  }

  // The other end of the range when a handle is taken.
  fixedBorder(target) {
    if (target === this.from) return this.range[1] ?? this.end;
    if (target === this.to) return this.range[0] ?? this.bins.start;
    return null;
  }

  chooseBin(bin) {
    if (bin >= 0) this.choose(this.bins.start + bin * this.bins.step, this.bins.start + (bin + 1) * this.bins.step);
  }

  chooseBetween(a, b) {
    if (a !== b) this.choose(Math.min(a, b), Math.max(a, b));
  }

  // ---- keyboard

  moveByKey(event, handle) {
    const steps = { ArrowLeft: -1, ArrowDown: -1, ArrowRight: 1, ArrowUp: 1, PageDown: -10, PageUp: 10,
      Home: -Infinity, End: Infinity }[event.key];
    if (steps === undefined || this.bins === null) return;
    event.preventDefault();
    const [from, to] = [this.range[0] ?? this.bins.start, this.range[1] ?? this.end];
    const { start, step } = this.bins;
    const moved = (time, least, most) => Math.min(Math.max(time + steps * step, least), most);
    const range = handle === this.from ? [moved(from, start, to - step), to] : [from, moved(to, from + step, this.end)];
    if (range[0] === start && range[1] === this.end) this.choose(null, null);
    else this.choose(...range);
  }
}
