// Wells, groups and what happens when.
const hasDates = () => Number.isFinite(Date.parse(report.steps[0]));
/// In milliseconds; of a deck without a start the number of the step.
const timeOf = step => hasDates() ? Date.parse(report.steps[step].replace(" ", "T") + (report.steps[step].includes(" ") ? "Z" : "")) : step;
const dateOf = time => hasDates() ? new Date(time).toISOString().slice(0, 10) : `step ${time}`;

function addWells() {
    const wells = Object.entries(report.wells);
    if (!wells.length) return;
    const first = timeOf(0), last = timeOf(report.steps.length - 1);
    const part = step => last > first ? 100 * (timeOf(step) - first) / (last - first) : 0;
    const bars = wells.flatMap(([name, well]) => [make("span", {}, name),
        make("div", { class: "bar", role: "img", "aria-label": `${name}: ${lifeOf(well).map(([from, , what]) => `${report.steps[from]} ${what}`).join(", ")}` },
            lifeOf(well).map(([from, to, what]) => make("i", { class: { produces: "produces", injects: "injects", introduced: "introduced" }[what] || "closed",
                style: `left:${part(from)}%;width:${Math.max(part(to) - part(from), 0)}%`, title: `${name}: ${what}, ${report.steps[from]} to ${report.steps[to]}` })))]);
    const marks = [0, 0.25, 0.5, 0.75, 1].map(at => make("span", { style: `left:${3 + 94 * at}%` },
        dateOf(Math.round(first + at * (last - first)))));
    const key = (name, text) => make("span", {}, make("span", { class: "key " + name }), text);
    addSection("wells", "Wells", make("p", { class: "legend" }, key("introduced", "introduced"), key("produces", "produces"), key("injects", "injects"), key("closed", "shut, stopped or waiting")),
        make("div", { class: "bars" }, bars, make("span"), make("div", { class: "axis" }, marks)));
}

/// Spans of a well's life: first step, last step, what it does. A status without a control is that of the one before.
function lifeOf(well) {
    const end = report.steps.length - 1, spans = [];
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

function addGroups() {
    const groups = report.summary.groups;
    if (!groups.length) return;
    const wellsOf = name => report.summary.wells.filter(well => well.group === name);
    const branch = group => make("li", {}, make("b", {}, group.name), " ", wellsOf(group.name).map(well => well.name).join(", "),
        make("ul", {}, groups.filter(other => other.parent === group.name && other !== group).map(branch)));
    addSection("groups", "Groups", make("p", { class: "note" }, "As they are at the end of the schedule, each with its own wells."),
        make("ul", { class: "tree" }, groups.filter(group => !group.parent).map(branch)));
}

function addRates() {
    const series = report.series;
    if (!series.length) return;
    const [canvas, box] = makeChart("Rates and targets over time");
    const wells = Object.keys(report.wells);
    let number = 0, well = "";
    const end = report.steps.length - 1;
    const controls = new Set(series.map(one => one.keyword));
    /// What a well has at each step: what it was last given, null before that, and once another keyword controls it.
    function course(one, name) {
        const well = report.wells[name], given = new Map(one.wells[name] || []), states = new Map(well.states);
        const others = new Set(well.events.filter(([, keyword]) => controls.has(keyword) && keyword !== one.keyword).map(([step]) => step));
        const values = [];
        let value = null, isOpen = true;
        for (let step = 0; step <= end; ++step) {
            if (others.has(step)) value = null;
            if (given.has(step)) value = given.get(step);
            if (states.has(step)) isOpen = ["produces", "injects", ""].includes(states.get(step));
            values.push(isOpen || value === null ? value : 0);
        }
        return values;
    }
    /// Null where no well has a value.
    const total = one => Object.keys(one.wells).map(name => course(one, name))
        .reduce((sums, values) => sums.map((sum, step) => sum === null ? values[step] : sum + (values[step] || 0)), new Array(end + 1).fill(null));
    function show() {
        const one = series[number];
        const lines = well ? [[well, course(one, well)]] : one.isRate ? [["all wells", total(one)]]
            : Object.keys(one.wells).map(name => [name, course(one, name)]); // pressures don't add up
        draw(canvas, "line", lines.map(([label, values], i) => ({ label, stepped: true, pointRadius: 2, borderWidth: 2,
            data: values.map((y, step) => ({ x: timeOf(step), y: y === null ? NaN : y })), pointStyle: pointStyles[i % pointStyles.length],
            borderColor: lineColours[i % lineColours.length], backgroundColor: lineColours[i % lineColours.length] })),
            "Date", withUnit(`${one.keyword} ${one.item}`, one.unit), { x: { ticks: { callback: dateOf, maxRotation: 0, autoSkipPadding: 24 }, own: { min: timeOf(0), max: timeOf(end) } },
                tooltip: { title: items => dateOf(items[0].parsed.x) } });
    }
    redraws.push(show);
    setTimeout(show);
    addSection("rates", "Rates and targets", make("div", { class: "controls" },
        makeSelect("Quantity", series.map((one, i) => [i, withUnit(`${one.keyword} ${one.item}`, one.unit)]), 0, value => { number = Number(value); show(); }),
        makeSelect("Well", [["", "all wells"], ...wells.map(name => [name, name])], "", value => { well = value; show(); })),
    box, make("p", { class: "note" }, "What the deck gives, held until it gives another value; rates of all wells are added up, and a well that is shut counts as 0."));
}

function addEvents() {
    const rows = report.events.map((keywords, step) => [report.steps[step] || "before the first date", Object.entries(keywords)])
        .filter(([, keywords]) => keywords.length);
    if (!rows.length) return;
    const place = make("div");
    const show = wanted => place.replaceChildren(makeTable(["Date", "Keywords"], rows.map(([date, keywords]) => [date,
        keywords.filter(([name]) => name.includes(wanted.toUpperCase())).map(([name, count]) => count > 1 ? `${name} (${count})` : name).join(", ")])
        .filter(([, text]) => text)));
    const field = make("input", { type: "search", oninput: () => show(field.value), placeholder: "part of a keyword" });
    show("");
    addSection("events", "Events by date", make("div", { class: "controls" }, make("label", {}, "Keywords with ", field)), place);
}
