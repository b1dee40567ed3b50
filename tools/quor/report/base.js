// What all parts of the report use: the data, elements, charts, colours.
let report = null;

/// The bytes of an element of the page that holds them deflated, in base64.
async function unpack(id) {
    const text = atob(document.getElementById(id).textContent);
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < text.length; ++i)
        bytes[i] = text.charCodeAt(i);
    const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("deflate"));
    return new Response(stream).arrayBuffer();
}

const unpacked = new Map(); // arrays of cells, opened when they are first asked for
async function valuesOf(array) {
    if (!unpacked.has(array.values))
        unpacked.set(array.values, new Float32Array(await unpack("values-" + array.values)));
    return unpacked.get(array.values);
}

/// An element with attributes and children, which are elements or texts.
function make(tag, attributes = {}, ...children) {
    const element = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) {
        if (name.startsWith("on")) element.addEventListener(name.slice(2), value);
        else if (value !== null) element.setAttribute(name, value);
    }
    element.append(...children.flat());
    return element;
}

function makeTable(head, rows, numbersFrom = 99) {
    const cell = (value, i) => make("td", { class: i >= numbersFrom ? "number" : null }, value === null ? "–" : String(value));
    return make("div", { class: "wide", tabindex: "0", role: "region", "aria-label": "Table" }, make("table", {},
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

const short = number => number === null || !Number.isFinite(number) ? "–" : String(Number(number.toPrecision(5)));
const withUnit = (name, unit) => unit ? `${name} (${unit})` : name;

// Okabe and Ito's colours, which the colour-blind tell apart.
const lineColours = ["#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#8c6d00", "#7f7f7f"];
const dashes = [[], [6, 3], [2, 2], [8, 3, 2, 3]];
const pointStyles = ["circle", "rect", "triangle", "crossRot"];
const scaleStops = [[68, 1, 84], [71, 44, 122], [59, 81, 139], [44, 113, 142], [33, 144, 141], [39, 173, 129], [92, 200, 99], [170, 220, 50], [253, 231, 37]];
function scaleColour(part) {
    const at = Math.min(Math.max(part, 0), 1) * (scaleStops.length - 1);
    const from = scaleStops[Math.floor(at)], to = scaleStops[Math.ceil(at)];
    return from.map((value, i) => Math.round(value + (to[i] - value) * (at - Math.floor(at))));
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
            plugins: { legend: { display: datasets.length > 1 && datasets.length < 10, labels: { color: front, usePointStyle: true } }, tooltip: { callbacks: options.tooltip || {} } } },
    }));
}
function makeChart(label) {
    const canvas = make("canvas", { role: "img", "aria-label": label });
    return [canvas, make("div", { class: "chart" }, canvas)];
}
const redraws = []; // after a change of the theme
