// Which records are shown, and in which order.

// 'disk "is full" -C:' -> [{ text: 'disk' }, { text: 'is full' }, { text: 'c:', excluded: true }]
function termsOf(query) {
  const terms = [];
  for (const match of query.toLowerCase().matchAll(/(-?)(?:"([^"]+)"?|([^\s"]\S*))/g)) {
    terms.push({ text: match[2] ?? match[3], excluded: match[1] === '-' });
  }
  return terms;
}

class Filter {
  constructor(data) {
    this.data = data;
    this.lower = []; // of texts, as far as they were asked for
    this.lowerArguments = [];
    this.orders = new Map();
  }

  lowerText(place) {
    return (this.lower[place] ??= this.data.texts[place].toLowerCase());
  }

  lowerArgumentsText(place) {
    return (this.lowerArguments[place] ??=
      place === 0 ? '' : argumentValues(JSON.parse(this.data.texts[place])).toLowerCase());
  }

  // A function that tells whether the text of a place contains the term, asking each text once.
  finder(term, textOf) {
    const known = new Uint8Array(this.data.texts.length); // 1: no, 2: yes
    return (place) => {
      if (known[place] === 0) known[place] = textOf.call(this, place).includes(term) ? 2 : 1;
      return known[place] === 2;
    };
  }

  termTest(term) {
    const { text, token, context, message, arguments: args } = this.data.columns;
    const inText = this.finder(term.text, this.lowerText);
    const inArguments = this.finder(term.text, this.lowerArgumentsText);
    const inMessage = (row) => message[row] !== 0 && `message ${message[row]}`.includes(term.text);
    const occurs = (row) => inText(text[row]) || inArguments(args[row]) || inText(token[row]) || inText(context[row])
      || inMessage(row);
    return term.excluded ? (row) => !occurs(row) : occurs;
  }

  // One test for each filter that is set.
  tests(state) {
    const { type, grade, who, originator } = this.data.columns;
    const tests = [];
    if (state.types.size > 0) tests.push((row) => state.types.has(String(type[row])));
    if (state.grades.size > 0) {
      const wanted = this.data.grades.map((item) => state.grades.has(item.key));
      tests.push((row) => wanted[grade[row]]);
    }
    if (state.originator !== '') {
      const place = this.data.originators.findIndex((item) => `${item[0]}.${item[1]}` === state.originator);
      tests.push((row) => originator[row] === place);
    }
    if (state.who !== '') {
      const inWho = this.finder(state.who.toLowerCase(), this.lowerText);
      tests.push((row) => inWho(who[row]));
    }
    for (const term of termsOf(state.text)) tests.push(this.termTest(term));
    return tests;
  }

  // 1 for each record that every filter but the time range lets through. Kept while the range is dragged.
  matches(state) {
    const key = JSON.stringify([state.text, state.who, state.originator, [...state.types], [...state.grades]]);
    if (key !== this.matchesKey) {
      const tests = this.tests(state);
      this.lastMatches = Uint8Array.from({ length: this.data.count }, (_, row) => (tests.every((test) => test(row)) ? 1 : 0));
      this.matchesKey = key;
    }
    return this.lastMatches;
  }

  // Marks each record: 0 not wanted, 1 wanted but outside the time range, 2 shown.
  marks(state) {
    const { time } = this.data.columns;
    const marks = this.matches(state).slice();
    const from = state.from ?? -Infinity;
    const to = state.to ?? Infinity;
    for (let row = 0; row < marks.length; ++row) {
      if (marks[row] === 1 && time[row] >= from && time[row] < to) marks[row] = 2;
    }
    return marks;
  }

  // All rows in ascending order of a column, which is worked out once.
  order(column) {
    let order = this.orders.get(column);
    if (order === undefined) {
      const keys = this.sortKeys(column);
      order = Uint32Array.from({ length: this.data.count }, (_, row) => row);
      order.sort((a, b) => keys[a] - keys[b] || a - b);
      this.orders.set(column, order);
    }
    return order;
  }

  sortKeys(column) {
    const { columns, texts, grades, originators } = this.data;
    switch (column) {
      case 'grade': return Float64Array.from(columns.grade, (place) => grades[place].rank);
      case 'originator': {
        const names = originators.map((_, place) => place)
          .sort((a, b) => originators[a][0] - originators[b][0] || originators[a][1] - originators[b][1]);
        const ranks = new Uint32Array(originators.length);
        names.forEach((place, rank) => { ranks[place] = rank; });
        return columns.originator.map((place) => ranks[place]);
      }
      case 'who':
      case 'text': return this.textRanks(columns[column], texts);
      default: return columns[column];
    }
  }

  textRanks(column, texts) {
    const places = Uint32Array.from(new Set(column));
    const before = (a, b) => (a < b ? -1 : a > b ? 1 : 0);
    places.sort((a, b) => before(this.lowerText(a), this.lowerText(b)));
    const ranks = new Uint32Array(texts.length);
    places.forEach((place, rank) => { ranks[place] = rank; });
    return column.map((place) => ranks[place]);
  }

  // The rows that are shown, in the order that is wanted.
  rows(marks, sort) {
    const rows = new Uint32Array(marks.length);
    let count = 0;
    const order = sort.column === '' ? null : this.order(sort.column);
    const last = marks.length - 1;
    for (let i = 0; i < marks.length; ++i) {
      const at = sort.down ? last - i : i;
      const row = order === null ? at : order[at];
      if (marks[row] === 2) rows[count++] = row;
    }
    return rows.subarray(0, count);
  }
}
