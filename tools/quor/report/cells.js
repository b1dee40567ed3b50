// Arrays of cells: a map of a layer, a histogram, a cross plot.
function addCells() {
    const names = inOrder(decks.flatMap(deck => deck.arrays.map(array => array.name)));
    if (!names.length) {
        addSection("cells", "Cells", make("p", {}, "The deck gives no array of cells whose values can be worked out."));
        return;
    }
    const ofRole = role => decks.flatMap(deck => deck.arrays).find(array => array.role === role)?.name;
    const differs = (report.changes?.arrays || []).map(array => array.name);
    const first = ofRole("porosity") || names[0];
    addSection("cells", "Cells", addMap(names, differs.includes(first) ? first : differs[0] || first), make("div", { class: "two" }, addHistogram(names, first),
        addCross(names, first, ofRole("permeability") || names[1] || names[0])));
}

const titleOfArray = name => withUnit(name, decks.map(deck => arrayOf(deck, name)).find(Boolean).unit);
/// Name and text of an array in a list of choices.
const choiceOf = name => [name, titleOfArray(name) + (report.changes?.arrays.some(one => one.name === name) ? ", differs" : "")];

/// The values of the active cells of an array, NaN where they are not known; null if the deck doesn't have it.
async function activeValues(deck, name) {
    const array = arrayOf(deck, name);
    if (!array) return null;
    const values = await valuesOf(array), active = await activity(deck);
    return active ? values.map((value, cell) => active[cell] ? value : NaN) : values;
}

function addHistogram(names, first) {
    const bins = 40;
    const [canvas, box] = makeChart("Histogram");
    let name = first;
    async function show() {
        const lists = await Promise.all(decks.map(deck => activeValues(deck, name)));
        const [low, high] = rangeOf(lists.map(values => ({ values })));
        // Whole numbers, as those of regions, have a bar each.
        const isWhole = decks.map(deck => arrayOf(deck, name)).find(Boolean).isWhole && high - low >= 0 && high - low < bins;
        const count = isWhole ? high - low + 1 : bins, least = isWhole ? low - 0.5 : low;
        const width = isWhole ? 1 : (high - low) / bins || (Math.abs(low) || 1) / 100;
        const datasets = lists.flatMap((values, number) => {
            if (!values) return [];
            const counts = new Array(count).fill(0);
            for (const value of values) {
                if (Number.isFinite(value)) ++counts[Math.min(Math.floor((value - least) / width), count - 1)];
            }
            return { label: ofDeck(name, decks[number]), backgroundColor: lineColour(number), barPercentage: 1, categoryPercentage: 1,
                data: counts.map((y, i) => ({ x: least + (i + 0.5) * width, y })) };
        });
        draw(canvas, "bar", datasets, titleOfArray(name), "Cells",
            { x: { own: { offset: false, ...(isWhole ? { min: least, max: least + count } : {}) }, ticks: isWhole ? { callback: value => Number.isInteger(value) ? value : "" } : {} } });
    }
    redraws.push(show);
    setTimeout(show);
    return make("div", {}, make("h3", {}, "Histogram"), make("div", { class: "controls" },
        makeSelect("Array", names.map(choiceOf), name, chosen => { name = chosen; show(); })), box);
}

function addCross(names, x, y) {
    const most = 20000; // points; of more cells every so-manieth
    const [canvas, box] = makeChart("Cross plot");
    let pair = [x, y], isLog = decks.some(deck => arrayOf(deck, y)?.role === "permeability");
    async function pointsOf(deck) {
        const [as, bs] = await Promise.all(pair.map(name => activeValues(deck, name))), data = [];
        const stride = as && bs ? Math.ceil(as.length / most) : 0;
        for (let cell = 0; stride && cell < as.length; cell += stride) {
            if (Number.isFinite(as[cell]) && Number.isFinite(bs[cell]) && (!isLog || bs[cell] > 0)) data.push({ x: as[cell], y: bs[cell] });
        }
        return data.sort((one, other) => one.x - other.x); // Chart.js takes the ends of the axis from the first point and the last
    }
    async function show() {
        const lists = await Promise.all(decks.map(pointsOf));
        draw(canvas, "scatter", lists.flatMap((data, i) => !data.length ? [] : [{ label: ofDeck(`${pair[1]} against ${pair[0]}`, decks[i]), data, pointRadius: 2, pointStyle: pointStyles[i], backgroundColor: lineColour(i) + "90" }]),
            titleOfArray(pair[0]), titleOfArray(pair[1]), { y: { type: isLog ? "logarithmic" : "linear" } });
    }
    redraws.push(show);
    setTimeout(show);
    const log = make("input", { type: "checkbox", onchange: () => { isLog = log.checked; show(); } });
    log.checked = isLog;
    const choices = names.map(choiceOf);
    return make("div", {}, make("h3", {}, "Cross plot"), make("div", { class: "controls" },
        makeSelect("X", choices, x, chosen => { pair[0] = chosen; show(); }),
        makeSelect("Y", choices, y, chosen => { pair[1] = chosen; show(); }), make("label", {}, log, " logarithmic")), box);
}
