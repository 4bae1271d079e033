// Texts, times and numbers as they are shown. Texts of records reach the page through here only, and only as text.

const kShownInRow = 400; // characters

// Characters that are invisible, or that change the order of what is around them. Joiners stay: scripts need them.
const kMarked = /[\u0000-\u001f\u007f-\u009f\u00ad\u061c\u200b\u200e\u200f\u2028-\u202e\u2060-\u206f\ufeff\ufff9-\ufffb]|[\u{e0000}-\u{e007f}]/u;
const kMarkedRuns = new RegExp(`(?:${kMarked.source})+`, 'gu');

// By name: fonts rarely have the pictures that Unicode has for them.
const kControlNames = ('NUL SOH STX ETX EOT ENQ ACK BEL BS TAB LF VT FF CR SO SI DLE DC1 DC2 DC3 DC4 NAK SYN ETB '
  + 'CAN EM SUB ESC FS GS RS US').split(' ');

function signOf(character) {
  if (character === '\n') return '\u21b5';
  const code = character.codePointAt(0);
  const name = kControlNames[code] ?? code.toString(16).toUpperCase().padStart(4, '0');
  return `\u27e8${name}\u27e9`;
}

function signsOf(run, keepLines) {
  return [...run].map((character) => (keepLines && (character === '\n' || character === '\t') ? character
    : signOf(character))).join('');
}

function element(name, className, text) {
  const made = document.createElement(name);
  if (className) made.className = className;
  if (text !== undefined) made.textContent = text;
  return made;
}

// Appends the text, with signs for characters that would not be seen. `keepLines` leaves line ends and tabs alone.
function appendText(to, text, keepLines) {
  let end = 0;
  for (const match of text.matchAll(kMarkedRuns)) {
    const signs = signsOf(match[0], keepLines);
    if (signs === match[0]) continue;
    if (match.index > end) to.append(text.slice(end, match.index));
    to.append(element('span', 'sign', signs));
    end = match.index + match[0].length;
  }
  if (end < text.length) to.append(text.slice(end));
}

// For places that take no elements.
function plainText(text) {
  return text.replace(kMarkedRuns, (run) => signsOf(run, false));
}

// Without cutting a character in two.
function beginningOf(text, length) {
  if (text.length <= length) return text;
  const last = text.charCodeAt(length - 1);
  return text.slice(0, last >= 0xd800 && last < 0xdc00 ? length - 1 : length);
}

function setText(to, text) {
  to.textContent = '';
  const shown = beginningOf(text, kShownInRow);
  if (kMarked.test(shown)) appendText(to, shown, false);
  else to.textContent = shown;
  if (shown.length < text.length) to.append('\u2026');
}

function number(value) {
  return value.toLocaleString('en');
}

// ---- times; a zone is { key, name, offset(time) }: seconds, local time minus UTC

const kLastTime = 8.64e15; // of the calendar that JavaScript has

function localTime(time, zone) {
  const local = time + zone.offset(time) * 1000;
  return local >= 0 && local <= kLastTime ? new Date(local).toISOString() : null;
}

// "2026-03-01 12:34:56.789"
function timeText(time, zone) {
  const text = localTime(time, zone);
  if (text === null) return `${time} ms`;
  return text.slice(0, -1).replace('T', ' ');
}

// Without the parts that are zero at its end.
function shortTimeText(time, zone) {
  return timeText(time, zone).replace(/(:00)?\.000$/, '');
}

function dateText(time, zone) {
  return timeText(time, zone).split(' ')[0];
}

// As exact as the step asks for.
function timeOfDay(time, zone, step) {
  const text = timeText(time, zone).split(' ')[1] ?? '';
  return text.slice(0, step < 1000 ? 12 : step < 60_000 ? 8 : 5);
}

function offsetText(seconds) {
  const minutes = Math.round(Math.abs(seconds) / 60);
  const two = (value) => String(value).padStart(2, '0');
  return `UTC${seconds < 0 ? '\u2212' : '+'}${two(Math.floor(minutes / 60))}:${two(minutes % 60)}`;
}

function fixedZone(name, offset) {
  return { key: String(offset), name, offset: () => offset };
}

function ownZone() {
  return { key: 'own', name: 'this computer\u2019s zone', offset: (time) => {
    const minutes = -new Date(Math.min(time, kLastTime)).getTimezoneOffset();
    return minutes * 60;
  } };
}

// The report's zones, UTC, and the reader's own.
function zonesOf(info) {
  const zones = info.zones.map(([name, offset]) => fixedZone(plainText(name), offset));
  if (!zones.some((zone) => zone.key === '0')) zones.push(fixedZone('UTC', 0));
  for (const zone of zones) {
    if (zone.key !== '0' && !zone.name.includes('UTC')) zone.name = `${zone.name} ${offsetText(zone.offset())}`.trim();
  }
  return [...new Map([...zones, ownZone()].reverse().map((zone) => [zone.key, zone])).values()].reverse();
}
