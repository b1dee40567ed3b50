// What happens when: time, wells, events.
const hasDates = () => decks.every(deck => Number.isFinite(Date.parse(deck.steps[0])));
/// In milliseconds; of a deck without a start the number of the step.
const timeOf = (deck, step) => hasDates() ? Date.parse(deck.steps[step].replace(" ", "T") + (deck.steps[step].includes(" ") ? "Z" : "")) : step;
const dateOf = time => hasDates() ? new Date(time).toISOString().slice(0, 10) : `step ${time}`;
const stepText = (deck, step) => deck.steps[step] || (step ? `step ${step}` : "the start");
/// The first and the last time of all decks.
const timeSpan = () => [Math.min(...decks.map(deck => timeOf(deck, 0))), Math.max(...decks.map(deck => timeOf(deck, deck.steps.length - 1)))];

/// Round dates for an axis, at most eight: starts of years or of months; of a short time at most five even parts.
function marksOf([first, last]) {
    const year = new Date(first).getUTCFullYear();
    for (const months of hasDates() ? [1, 3, 6, 12, 24, 60, 120, 240, 600] : []) {
        const start = Date.UTC(year - year % Math.ceil(months / 12), 0), marks = [];
        for (let i = 0, time = start; time <= last; time = new Date(start).setUTCMonth(++i * months)) {
            if (time >= first) marks.push(time);
        }
        if (marks.length < 3) break;
        if (marks.length < 9) return marks;
    }
    const parts = [0, 0.25, 0.5, 0.75, 1].map(at => Math.round(first + at * (last - first)));
    return parts.filter((time, i) => !i || dateOf(time) !== dateOf(parts[i - 1]));
}

const uses = ["introduced", "produces", "injects"]; // all else is closed in one way or another

/// Spans of a well's life: first step, last step, what it does. A status without a control is that of the one before.
function lifeOf(well, deck) {
    const end = deck.steps.length - 1, spans = [];
    let use = "introduced";
    for (const [step, state] of [[well.since, "introduced"], ...well.states]) {
        if (state === "produces" || state === "injects") use = state;
        const what = state || use;
        const last = spans[spans.length - 1];
        if (last && last[2] === what) continue;
        if (last) last[1] = step;
        if (last && last[0] === step) spans.pop();
        spans.push([step, end, what]);
    }
    return spans;
}

/// The spans of a bar are made when it is first seen: of many wells there are too many to be drawn at once.
const spansOfBars = new Map();
function fillBar(bar) {
    bar.append(...(spansOfBars.get(bar)?.() || []));
    spansOfBars.delete(bar);
}
const seenBars = new IntersectionObserver(entries => entries.filter(entry => entry.isIntersecting).forEach(entry => fillBar(entry.target)), { rootMargin: "10000px" });
window.addEventListener("beforeprint", () => [...spansOfBars.keys()].forEach(fillBar));

function makeBar(name, deck, [first, last]) {
    const well = deck.wells[name];
    if (!well)
        return make("div", { class: "bar absent" }, `not in ${deck.label}`);
    const part = step => last > first ? 100 * (timeOf(deck, step) - first) / (last - first) : 0;
    const life = lifeOf(well, deck);
    const connected = unique(well.connections.map(connection => connection[4])).filter(step => step > well.since);
    const bar = make("div", { class: "bar", role: "img", "aria-label": `${ofDeck(name, deck)}: ${life.map(([from, , what]) => `${stepText(deck, from)} ${what}`).join(", ")}` });
    spansOfBars.set(bar, () => [...life.map(([from, to, what]) => make("i", { class: uses.includes(what) ? what : "closed",
        style: `left:${part(from)}%;width:${Math.max(part(to) - part(from), 0)}%`, title: `${name}: ${what}, ${stepText(deck, from)} to ${stepText(deck, to)}` })),
    ...connected.map(step => make("b", { style: `left:${part(step)}%`, title: `${name}: connections, ${stepText(deck, step)}` }))]);
    seenBars.observe(bar);
    return bar;
}

function addWells() {
    const names = inOrder(decks.flatMap(deck => Object.keys(deck.wells)));
    if (!names.length) return;
    const span = timeSpan(), [first, last] = span;
    const bars = names.flatMap(name => [make("span", {}, name), make("div", {}, decks.map(deck => makeBar(name, deck, span)))]);
    const marks = marksOf(span).map(time => {
        const at = last > first ? 100 * (time - first) / (last - first) : 0;
        return make("span", { style: `left:${at}%; transform: translateX(-${at}%)` }, dateOf(time));
    });
    const key = (name, text) => make("span", {}, make("span", { class: "key " + name }), text);
    addSection("wells", "Wells", make("p", { class: "legend" }, key("introduced", "introduced"), key("produces", "produces"), key("injects", "injects"),
        key("closed", "shut, stopped or waiting"), key("connected", "connections added or changed")),
    decks.length > 1 ? make("p", { class: "note" }, `The upper bar of a well is that of ${decks[0].label}, the lower that of ${decks[1].label}.`) : "",
    make("div", { class: "bars", tabindex: "0", role: "region", "aria-label": "Wells over time" }, bars, make("span"), make("div", { class: "axis" }, marks)));
}

/// By step what wells begin to do: "produces: P1, P2".
function turnsOf(deck) {
    const turns = deck.steps.map(() => new Map());
    for (const [name, well] of Object.entries(deck.wells)) {
        for (const [from, , what] of lifeOf(well, deck))
            turns[from].set(what, turns[from].get(what) || []).get(what).push(name);
    }
    return turns.map(byWhat => [...byWhat].map(([what, names]) => `${what}: ${names.join(", ")}`).join("; "));
}

/// A row for each date; of two decks one, if both have the same at a date.
function eventRows() {
    const rows = new Map();
    for (const deck of decks) {
        const turns = turnsOf(deck);
        deck.events.forEach((counts, step) => {
            const keywords = Object.entries(counts).map(([name, count]) => count > 1 ? `${name} (${count})` : name);
            if (!keywords.length) return;
            const row = { time: timeOf(deck, step), label: deck.label, date: stepText(deck, step), keywords, turns: turns[step] };
            const key = JSON.stringify({ ...row, label: "" });
            rows.set(key, rows.has(key) ? { ...row, label: "both" } : row);
        });
    }
    return [...rows.values()].sort((one, other) => one.time - other.time);
}

function addEvents() {
    const rows = eventRows(), isOfTwo = decks.length > 1;
    if (!rows.length) return;
    const place = make("div");
    const show = wanted => {
        const hasPart = text => text.toUpperCase().includes(wanted.toUpperCase());
        place.replaceChildren(makeTable("Events", ["Date", ...(isOfTwo ? ["Deck"] : []), "Keywords", "Wells"], rows
            .map(row => ({ ...row, keywords: hasPart(row.turns) ? row.keywords : row.keywords.filter(hasPart) })).filter(row => row.keywords.length)
            .map(row => [row.date, ...(isOfTwo ? [row.label] : []), row.keywords.join(", "), row.turns])));
    };
    const field = make("input", { type: "search", oninput: () => show(field.value), placeholder: "part of a name" });
    show("");
    addSection("events", "Events by date", make("div", { class: "controls" }, make("label", {}, "Keywords and wells with ", field)), place);
}
