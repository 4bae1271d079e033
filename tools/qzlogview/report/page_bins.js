// Time cut into equal parts, and the messages counted in them.

const kSecond = 1000;
const kDay = 86_400_000;
const kSteps = [1, 2, 5, 10, 20, 50, 100, 200, 500, ...[1, 2, 5, 10, 15, 30].map((n) => n * kSecond),
  ...[1, 2, 5, 10, 15, 30].map((n) => n * 60 * kSecond), ...[1, 2, 3, 6, 12].map((n) => n * 3600 * kSecond),
  ...[1, 2, 7, 14, 28, 91, 182, 365].map((n) => n * kDay)];
const kMostBins = 120;

function stepFor(span, parts) {
  const wanted = span / parts;
  let step = kSteps.find((candidate) => candidate >= wanted);
  for (step ??= 1000 * kDay; step < wanted;) step *= 10;
  return step;
}

// The multiple of the step, in local time, at or before a time.
function floorTo(time, step, offset) {
  return Math.floor((time + offset * 1000) / step) * step - offset * 1000;
}

// { start, step, count }: covers the span, with borders at round local times.
function binsOf(from, to, zone) {
  const step = stepFor(Math.max(to - from, 1), kMostBins);
  const start = floorTo(from, step, zone.offset(from));
  return { start, step, count: Math.max(Math.floor((to - start) / step) + 1, 1) };
}

function spanOf(time) {
  if (time.length === 0) return null;
  let from = Infinity;
  let to = -Infinity;
  for (const at of time) {
    if (at < from) from = at;
    if (at > to) to = at;
  }
  return [from, to];
}

// The parts of a bar, from the bottom up; `index` tells the part of each record's type or grade. The look is a
// number: colour and pattern of page.css.
function seriesOf(data, stack) {
  if (stack === 'type') {
    const present = data.types.filter((type) => type.number < kTypeNames.length);
    const series = present.map((type) => ({ name: type.name, look: `type-${type.number}` }));
    if (present.length < data.types.length) series.push({ name: 'other types', look: 'other' });
    const places = new Map(present.map((type, place) => [type.number, place]));
    return { series, column: data.columns.type, index: (type) => places.get(type) ?? series.length - 1 };
  }
  const looks = ['s4', 's3', 's2', 's1', 's0', 'level', 'none', 'other'];
  const names = ['fatal', 'severe', 'error', 'warning', 'information', 'debug and diagnostic', 'none', 'other severities'];
  const lookOf = (grade) => (looks.includes(grade.key) ? grade.key : grade.key.startsWith('l') ? 'level' : 'other');
  const present = looks.filter((look) => data.grades.some((grade) => lookOf(grade) === look));
  const places = data.grades.map((grade) => present.indexOf(lookOf(grade)));
  return {
    series: present.map((look) => ({ name: names[looks.indexOf(look)], look })),
    column: data.columns.grade,
    index: (grade) => places[grade],
  };
}

// counts[bin * series + part], of the marked records.
function countBins(data, marks, bins, stacking) {
  const { time } = data.columns;
  const width = stacking.series.length;
  const counts = new Uint32Array(bins.count * width);
  for (let row = 0; row < marks.length; ++row) {
    if (marks[row] === 0) continue;
    const bin = Math.floor((time[row] - bins.start) / bins.step);
    if (bin >= 0 && bin < bins.count) ++counts[bin * width + stacking.index(stacking.column[row])];
  }
  return counts;
}
