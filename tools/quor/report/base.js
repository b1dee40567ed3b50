// What all parts of the report use: the data, elements, charts, colours.
let report = null;

let decks = []; // the report, and of a comparison that on the other deck

/// The arrays of cells are at the end of the page, so that the rest is shown before they are there.
const isWhole = new Promise(done => document.addEventListener("DOMContentLoaded", done));

/// The bytes of an element of the page that holds them deflated, in base64. The element is emptied.
async function unpack(id) {
    const element = document.getElementById(id);
    const text = atob(element.textContent);
    element.textContent = "";
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < text.length; ++i)
        bytes[i] = text.charCodeAt(i);
    if (typeof DecompressionStream === "undefined") // browsers before 2023
        return pako.inflate(bytes).buffer;
    const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("deflate"));
    return new Response(stream).arrayBuffer();
}

const unpacked = new Map(); // promises of arrays of cells, opened when they are first asked for
function valuesOf(array) {
    if (!unpacked.has(array.values))
        unpacked.set(array.values, isWhole.then(() => unpack("values-" + array.values)).then(bytes => new Float32Array(bytes)));
    return unpacked.get(array.values);
}

/// An element with attributes and children, which are elements or texts.
function make(tag, attributes = {}, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) {
        if (name.startsWith("on")) element.addEventListener(name.slice(2), value);
        else if (value !== null) element.setAttribute(name, value);
    }
    element.append(...children.flat(Infinity));
    return element;
}

/// A table with a name for those who can't see where it is; no two have the same.
const tableNames = new Map();
function makeTable(name, head, rows, numbersFrom = 99) {
    const count = (tableNames.get(name) || 0) + 1;
    tableNames.set(name, count);
    const cell = (value, i) => make("td", { class: i >= numbersFrom ? "number" : /^\d{4}-\d\d-\d\d/.test(value) ? "date" : null }, value === null ? "–" : String(value));
    return make("div", { class: "wide", tabindex: "0", role: "region", "aria-label": count > 1 ? `${name} ${count}` : name }, make("table", {},
        make("thead", {}, make("tr", {}, head.map(text => make("th", { scope: "col" }, text)))),
        make("tbody", {}, rows.map(row => make("tr", {}, row.map(cell))))));
}

function makeSelect(label, options, chosen, onChange) {
    const select = make("select", { onchange: () => onChange(select.value) },
        options.map(([value, text]) => make("option", { value }, text)));
    if (chosen !== undefined) select.value = chosen;
    return make("label", {}, label + " ", select);
}

const sections = [];
function addSection(id, title, ...content) {
    sections.push([id, title]);
    document.getElementById("content").append(make("section", { id, "aria-label": title }, make("h2", {}, title), ...content));
}

/// Of several decks the one that a text is about.
const ofDeck = (text, deck) => decks.length > 1 ? `${text}, ${deck.label}` : text;
const unique = list => [...new Set(list)];
/// Each once and in order, P2 before P10.
const inOrder = names => unique(names).sort((one, other) => one.localeCompare(other, "en", { numeric: true }));

const short = number => number === null || !Number.isFinite(number) ? "–" : String(Number(number.toPrecision(5)));
const withUnit = (name, unit) => unit ? `${name} (${unit})` : name;

// Okabe and Ito's colours, which the colour-blind tell apart; lighter ones on a dark page.
const lineColours = { light: ["#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#8c6d00", "#7f7f7f"],
    dark: ["#56b4e9", "#e69f00", "#2fc99b", "#e59ec6", "#f0e442", "#b5ddf7", "#d5a94a", "#b0b0b0"] };
const lineColour = number => lineColours[document.documentElement.dataset.theme][number % 8];
const dashes = [[], [6, 3], [2, 2], [8, 3, 2, 3]];
const pointStyles = ["circle", "rect", "triangle", "crossRot"];
const scaleStops = [[68, 1, 84], [71, 44, 122], [59, 81, 139], [44, 113, 142], [33, 144, 141], [39, 173, 129], [92, 200, 99], [170, 220, 50], [253, 231, 37]];
const differenceStops = [[0, 63, 115], [0, 114, 178], [146, 197, 222], [240, 240, 240], [240, 190, 130], [213, 94, 0], [125, 50, 0]];

/// 256 colours as pixels of an image, from the first stop to the last.
function makeShades(stops) {
    const shades = new Uint8Array(4 * 256);
    for (let i = 0; i < 256; ++i) {
        const at = i / 255 * (stops.length - 1), from = stops[Math.floor(at)], to = stops[Math.ceil(at)];
        shades.set([...from.map((value, j) => Math.round(value + (to[j] - value) * (at - Math.floor(at)))), 255], 4 * i);
    }
    return new Uint32Array(shades.buffer);
}

const charts = new Map(); // by canvas: a chart that is drawn again replaces the one before
function draw(canvas, type, datasets, x, y, options = {}) {
    charts.get(canvas)?.destroy();
    const style = getComputedStyle(document.documentElement);
    const front = style.getPropertyValue("--front"), line = style.getPropertyValue("--line");
    const axis = (title, more = {}) => ({ title: { display: true, text: title, color: front }, ticks: { color: front, ...more.ticks },
        grid: { color: line }, type: more.type || "linear", ...more.own });
    charts.set(canvas, new Chart(canvas, {
        type, data: { datasets },
        options: { animation: false, responsive: true, maintainAspectRatio: false, parsing: false,
            interaction: { mode: "nearest", intersect: false },
            scales: { x: axis(x, options.x), y: axis(y, options.y) },
            plugins: { legend: { display: datasets.length > 1 && datasets.length < 13, labels: { color: front, usePointStyle: true, boxWidth: 8, boxHeight: 8 } }, tooltip: { callbacks: options.tooltip || {} } } },
    }));
}
function makeChart(label) {
    const canvas = make("canvas", { role: "img", "aria-label": label });
    return [canvas, make("div", { class: "chart" }, canvas)];
}
const redraws = []; // after a change of the theme
