// All that is known of one record.

const kShownAtOnce = 100_000; // characters of a text

// A term and its description; nothing for an empty one.
function addField(list, name, content) {
  if (content === '' || content === null || content === undefined) return;
  const description = element('dd');
  if (content instanceof Node) description.append(content);
  else appendText(description, String(content), false);
  list.append(element('dt', '', name), description);
}

function named(number, name) {
  return name ? `${number} (${name})` : String(number);
}

function argumentTable(list) {
  const table = element('table');
  for (const [kind, value] of list) {
    const row = table.insertRow();
    row.insertCell().textContent = kind;
    const cell = row.insertCell();
    if (Array.isArray(value)) cell.append(argumentTable(value));
    else appendText(cell, value, true);
    if (kind === 'date and time') cell.append(` (${timeText(Number(value) * 1000, fixedZone('UTC', 0)).slice(0, 19)} UTC)`);
  }
  return table;
}

function fullText(text) {
  const block = element('pre', 'full-text');
  const shown = beginningOf(text, kShownAtOnce);
  appendText(block, shown, true);
  if (shown.length === text.length) return block;
  const all = element('button', '', `Show all ${number(text.length)} characters`);
  all.type = 'button';
  all.addEventListener('click', () => {
    block.textContent = '';
    appendText(block, text, true);
  });
  block.append('\u2026 ', all);
  return block;
}

function addTimes(list, data, row, zone) {
  const time = data.columns.time[row];
  const [, , , fileZone] = data.files[data.columns.file[row]];
  addField(list, 'Time', `${timeText(time, zone)}  ${zone.name}`);
  if (zone.key !== '0') addField(list, 'UTC', timeText(time, fixedZone('', 0)));
  if (fileZone !== null && fileZone !== 0 && zone.key !== String(fileZone)) {
    addField(list, 'Where it was logged', `${timeText(time, fixedZone('', fileZone))}  ${offsetText(fileZone)}`);
  }
}

function addContext(list, data, row) {
  const token = data.texts[data.columns.token[row]];
  const title = data.titles.get(data.columns.token[row]);
  addField(list, 'Context', token !== '' && title !== undefined ? `${token} (${data.texts[title]})` : token);
  addField(list, 'Begins the context', data.texts[data.columns.context[row]]);
}

function addPlace(list, data, row) {
  const [path, host, logSet] = data.files[data.columns.file[row]];
  addField(list, 'Host', host);
  addField(list, 'Log set', logSet);
  addField(list, 'Log file', path);
  addField(list, 'At byte', path === '' ? '' : number(data.columns.offset[row]));
}

function fieldsOf(data, row, zone) {
  const { columns } = data;
  const list = element('dl');
  const grade = data.grades[columns.grade[row]];
  const isAudit = columns.type[row] === 4 || columns.type[row] === 5;
  const [product, originator, productName, name] = data.originators[columns.originator[row]];
  addTimes(list, data, row, zone);
  addField(list, 'Type', typeName(columns.type[row]));
  addField(list, grade.key.startsWith('s') ? 'Severity' : 'Level', grade.key === 'none' ? '' : named(columns.level[row], kSeverityNames.includes(grade.name) ? grade.name : ''));
  addField(list, isAudit ? 'Subject' : 'Who', data.texts[columns.who[row]]);
  if (isAudit) addField(list, 'Outcome', named(columns.outcome[row], columns.outcome[row] === 0 ? 'success' : ''));
  addField(list, 'Product', named(product, productName));
  addField(list, 'Originator', named(originator, name));
  if (columns.fid[row] !== originator) addField(list, 'File originator', columns.fid[row]);
  addField(list, 'Sequence number', columns.sequence[row]);
  addField(list, 'Process', columns.process[row]);
  addField(list, 'Thread', columns.thread[row]);
  addContext(list, data, row);
  if (columns.message[row] !== 0) addField(list, 'Message id', columns.message[row]);
  const args = argumentsOf(data, row);
  if (args.length > 0) addField(list, 'Arguments', argumentTable(args));
  addPlace(list, data, row);
  return list;
}

function button(name, label, action) {
  const made = element('button', '', name);
  made.type = 'button';
  made.setAttribute('aria-label', label);
  made.title = label;
  made.addEventListener('click', action);
  return made;
}

// on: { move(by), close() }
function showDetails(box, data, row, zone, on) {
  const head = element('div', 'details-head');
  head.append(element('h2', '', `Record ${number(row + 1)}`), button('\u2191', 'Previous record', () => on.move(-1)),
    button('\u2193', 'Next record', () => on.move(1)), button('\u2715', 'Close the details', () => on.close()));
  const text = summaryOf(data, row);
  box.replaceChildren(head, ...(text === '' ? [] : [fullText(text)]), fieldsOf(data, row, zone));
  box.scrollTop = 0;
  box.hidden = false;
}
