// Tables of numbers: those of one row a region as a table, the others as plots. Of two decks those of the same
// keyword are shown together.

/// The tables of a keyword in each deck, in their order; null where a deck has none.
function pairTables(lists) {
    const pairs = new Map();
    lists.forEach((tables, number) => {
        const seen = new Map();
        for (const table of tables) {
            const key = `${table.keyword} ${table.number || ""}`, count = seen.get(key) || 0;
            seen.set(key, count + 1);
            const pair = pairs.get(`${key} ${count}`) || lists.map(() => null);
            pair[number] = table;
            pairs.set(`${key} ${count}`, pair);
        }
    });
    return [...pairs.values()];
}

/// What is drawn: of tables that are alike the first alone.
function versionsOf(pair) {
    const areAlike = pair.length > 1 && JSON.stringify({ ...pair[0], step: "" }) === JSON.stringify({ ...pair[1], step: "" });
    const versions = pair.map((table, number) => ({ table, deck: decks[number], number })).filter(({ table }) => table);
    return { versions: areAlike ? [{ ...versions[0], deck: { label: "both" } }] : versions,
        remark: pair.length < 2 ? "" : areAlike ? "the same in both decks" : versions.length > 1 ? "differs" : `only in ${versions[0].deck.label}` };
}

/// What a table is about, and what of it isn't shown.
const textOf = table => table.text + (table.left.length ? ` Not shown: ${table.left.join(", ")}.` : "");

function headOf(title, text, remark) {
    return [make("h3", {}, title, remark ? make("small", {}, ` ${remark}`) : ""), make("p", { class: "note" }, text)];
}

function addTables() {
    const hasRole = (table, begin) => table.columns.some(column => column.role.startsWith(begin));
    const isPlot = table => table.columns.length > 1 && table.regions.some(region => region.rows.length > 1);
    const groups = [["saturation", "Saturation functions", table => isPlot(table) && hasRole(table, "saturation of")],
        ["fluids", "Fluids", table => hasRole(table, "pressure of fluid")],
        ["contacts", "Contacts and equilibrium", table => hasRole(table, "contact of") || hasRole(table, "depth of datum")
            || (table.section === "SOLUTION" && hasRole(table, "depth of table"))],
        ["others", "Other tables", () => true]];
    const isGiven = table => table.regions.some(region => region.rows.some(row => row.some((value, i) => value !== null && !table.columns[i].isKey)));
    let rest = pairTables(decks.map(deck => deck.tables.filter(isGiven)));
    const firstOf = pair => pair.find(Boolean);
    for (const [id, title, belongs] of groups) {
        const own = rest.filter(pair => belongs(firstOf(pair)));
        rest = rest.filter(pair => !belongs(firstOf(pair)));
        if (own.length)
            addSection(id, title, make("div", { class: "two" }, own.flatMap(pair => pair.some(table => table && isPlot(table)) ? [plotTable(pair)]
                : hasRole(firstOf(pair), "contact of") ? [showTable(pair), plotContacts(pair)] : [showTable(pair)])));
    }
}

function showTable(pair) {
    const { versions, remark } = versionsOf(pair), { table } = versions[0];
    const named = versions.length > 1;
    const rows = versions.flatMap(version => version.table.regions.flatMap((region, i) => region.rows.map(row =>
        [i + 1, ...(named ? [version.deck.label] : []), ...row.map(value => value === null ? null : short(value))])));
    rows.sort((one, other) => one[0] - other[0]);
    return make("div", {}, headOf(table.keyword, textOf(table), remark),
        makeTable(table.keyword, ["No.", ...(named ? ["Deck"] : []), ...table.columns.map(column => withUnit(column.name, column.unit))], rows, named ? 2 : 1));
}

/// A chart for each unit, since an axis has one. Depths are drawn downwards.
function plotTable(pair) {
    const { versions, remark } = versionsOf(pair), { table } = versions[0];
    const units = new Map();
    table.columns.forEach((column, i) => {
        if (i === table.x || (table.x > 0 && i === 0)) return; // the other is what tells branches apart
        units.set(column.unit, [...(units.get(column.unit) || []), i]);
    });
    const x = table.columns[table.x], isDepth = x.role === "depth of table";
    let chosen = 0;
    const shows = [...units].map(([unit, columns]) => {
        const [canvas, box] = makeChart(`${table.keyword}: ${columns.map(i => table.columns[i].name).join(", ")}`);
        const titles = [withUnit(x.name, x.unit), columns.length === 1 ? withUnit(table.columns[columns[0]].name, unit) : unit || "fraction or ratio"];
        const show = () => {
            const lines = versions.flatMap(version => version.table.regions[chosen] ? linesOf(version, chosen, columns) : []);
            if (isDepth)
                lines.forEach(line => line.data.forEach((point, i) => { line.data[i] = { x: point.y, y: point.x }; }));
            draw(canvas, isDepth ? "scatter" : "line", lines, titles[isDepth ? 1 : 0], titles[isDepth ? 0 : 1],
                isDepth ? { y: { own: { reverse: true } } } : {});
        };
        redraws.push(show);
        setTimeout(show);
        return [show, box];
    });
    const regions = Math.max(...versions.map(version => version.table.regions.length));
    return make("div", {}, headOf(table.keyword, textOf(table), remark),
        regions > 1 ? make("div", { class: "controls" }, makeSelect("Table of", Array.from({ length: regions }, (_, i) => [i, `region ${i + 1}`]), 0, value => {
            chosen = Number(value);
            shows.forEach(([show]) => show());
        })) : "", shows.map(([, box]) => box));
}

/// The looks of a line by its number; those of the second deck are dashed, with hollow points.
function lineStyle(number, version, more = {}) {
    const colour = lineColour(number);
    return { borderColor: colour, backgroundColor: version.number ? "#0000" : colour, borderDash: decks.length > 1 ? dashes[version.number] : dashes[number % dashes.length],
        pointStyle: pointStyles[number % pointStyles.length], pointRadius: 3, borderWidth: 2, showLine: true, ...more };
}

/// A line for each column; of a table with branches one through their first rows, and one for each branch.
function linesOf(version, chosen, columns) {
    const { table } = version, region = table.regions[chosen];
    const byBranch = new Map();
    region.rows.forEach((row, i) => byBranch.set(region.branches[i], [...(byBranch.get(region.branches[i]) || []), row]));
    const branches = [...byBranch.values()];
    const line = (label, rows, column, number, more = {}) => ({ label: ofDeck(label, version.deck),
        data: rows.filter(row => row[column] !== null && row[table.x] !== null).map(row => ({ x: row[table.x], y: row[column] })),
        ...lineStyle(number, version, more) });
    if (branches.length === 1)
        return columns.map((column, number) => line(table.columns[column].name, branches[0], column, number));
    const outer = table.columns[0].name;
    return columns.flatMap(column => [line(`${table.columns[column].name}, first rows`, branches.map(rows => rows[0]), column, 0),
        ...branches.filter(rows => rows.length > 1).map((rows, i) => line(`${outer} ${short(rows[0][0])}`, rows, column, i + 1, { borderWidth: 1.5 }))]);
}

/// The depths of contacts and of the datum by region. Contacts that are far from all datum depths, as those
/// that mean "none" are, would leave no room for the others.
function plotContacts(pair) {
    const { versions } = versionsOf(pair);
    const [canvas, box] = makeChart("Contacts and datum by region");
    const kinds = [["depth of datum", "datum"], ["contact of gas", "gas and oil"], ["contact of water", "oil or gas and water"]];
    const datasets = () => versions.flatMap(version => kinds.map(([role, text], number) => {
        const { columns, regions } = version.table, at = columns.findIndex(column => column.role === role);
        const datum = columns.findIndex(column => column.role === "depth of datum");
        const data = at < 0 ? [] : regions.map((region, i) => ({ x: i + 1 + 0.1 * version.number, y: region.rows[0][at], datum: region.rows[0][datum] }))
            .filter(({ y, datum: depth }) => y !== null && (!depth || (y > 0.6 * depth && y < 1.7 * depth)));
        return { label: ofDeck(text, version.deck), data, ...lineStyle(number, version, { showLine: false, pointStyle: number ? "line" : "circle", pointRadius: number ? 16 : 5, borderWidth: 3 }) };
    })).filter(({ data }) => data.length);
    const unit = versions[0].table.columns.find(column => column.role === "depth of datum")?.unit;
    const regions = Math.max(...versions.map(version => version.table.regions.length));
    const show = () => draw(canvas, "scatter", datasets(), "Region", withUnit("Depth", unit),
        { x: { own: { min: 0.5, max: regions + 0.5 }, ticks: { stepSize: 0.5, callback: value => Number.isInteger(value) ? value : "" } }, y: { own: { reverse: true, grace: "10%" } } });
    redraws.push(show);
    setTimeout(show);
    return make("div", {}, make("h3", {}, "Depths by region"), box);
}
