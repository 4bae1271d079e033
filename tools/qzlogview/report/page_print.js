// On paper there is no scrolling: the first records as a plain table.

const kMostPrinted = 2000;

function fillPrint(data, rows, zone) {
  const table = element('table');
  const head = table.createTHead().insertRow();
  for (const column of kGridColumns) head.append(element('th', '', column.name));
  const body = table.createTBody();
  for (const row of rows.subarray(0, kMostPrinted)) {
    const line = body.insertRow();
    fillCells(kGridColumns.map(() => line.insertCell()), data, row, zone);
  }
  const note = rows.length > kMostPrinted
    ? `The first ${number(kMostPrinted)} of ${number(rows.length)} records.` : '';
  document.getElementById('print').replaceChildren(element('p', '', note), table);
}

function clearPrint() {
  document.getElementById('print').replaceChildren();
}
