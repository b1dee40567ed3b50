// Tables of numbers: those of one row a region as a table, the others as plots.
function addTables() {
    const hasRole = (table, begin) => table.columns.some(column => column.role.startsWith(begin));
    const isPlot = table => table.columns.length > 1 && table.regions.some(region => region.rows.length > 1);
    const groups = [["saturation", "Saturation functions", table => isPlot(table) && hasRole(table, "saturation of")],
        ["fluids", "Fluids", table => hasRole(table, "pressure of fluid")],
        ["contacts", "Contacts and equilibrium", table => hasRole(table, "contact of") || hasRole(table, "depth of datum")],
        ["others", "Other tables", () => true]];
    let rest = report.tables.filter(table => table.regions.some(region => region.rows.some(row => row.some(value => value !== null))));
    for (const [id, title, belongs] of groups) {
        const own = rest.filter(belongs);
        rest = rest.filter(table => !belongs(table));
        if (own.length)
            addSection(id, title, make("div", { class: "two" }, own.map(table => isPlot(table) ? plotTable(table) : showTable(table))));
    }
}

function showTable(table) {
    const rows = table.regions.flatMap((region, i) => region.rows.map(row => [i + 1, ...row.map(value => value === null ? null : short(value))]));
    return make("div", {}, make("h3", {}, table.keyword), make("p", { class: "note" }, table.text),
        makeTable(["No.", ...table.columns.map(column => withUnit(column.name, column.unit))], rows, 1));
}

/// A chart for each unit, since an axis has one.
function plotTable(table) {
    const units = new Map();
    table.columns.forEach((column, i) => {
        if (i === table.x || (table.x > 0 && i === 0)) return; // the other is what tells branches apart
        units.set(column.unit, [...(units.get(column.unit) || []), i]);
    });
    const x = table.columns[table.x];
    let chosen = 0;
    const shows = [...units].map(([unit, columns]) => {
        const [canvas, box] = makeChart(`${table.keyword}: ${columns.map(i => table.columns[i].name).join(", ")}`);
        const show = () => draw(canvas, "line", linesOf(table, table.regions[chosen], columns), withUnit(x.name, x.unit),
            columns.length === 1 ? withUnit(table.columns[columns[0]].name, unit) : unit || "fraction or ratio");
        redraws.push(show);
        setTimeout(show);
        return [show, box];
    });
    const regions = table.regions.map((region, i) => [i, `region ${i + 1}`]);
    return make("div", {}, make("h3", {}, table.keyword), make("p", { class: "note" }, table.text),
        table.regions.length > 1 ? make("div", { class: "controls" }, makeSelect("Table of", regions, 0, value => {
            chosen = Number(value);
            shows.forEach(([show]) => show());
        })) : "", shows.map(([, box]) => box));
}

/// A line for each column; of a table with branches one through their first rows, and one for each branch.
function linesOf(table, region, columns) {
    const byBranch = new Map();
    region.rows.forEach((row, i) => byBranch.set(region.branches[i], [...(byBranch.get(region.branches[i]) || []), row]));
    const branches = [...byBranch.values()];
    const line = (label, rows, column, number, more = {}) => ({ label,
        data: rows.filter(row => row[column] !== null && row[table.x] !== null).map(row => ({ x: row[table.x], y: row[column] })),
        borderColor: lineColours[number % lineColours.length], backgroundColor: lineColours[number % lineColours.length],
        borderDash: dashes[number % dashes.length], pointStyle: pointStyles[number % pointStyles.length], pointRadius: 3, borderWidth: 2, ...more });
    if (branches.length === 1)
        return columns.map((column, number) => line(table.columns[column].name, branches[0], column, number));
    const outer = table.columns[0].name;
    return columns.flatMap(column => [line(`${table.columns[column].name}, first rows`, branches.map(rows => rows[0]), column, 0),
        ...branches.filter(rows => rows.length > 1).map((rows, i) => line(`${outer} ${short(rows[0][0])}`, rows, column, i + 1, { borderWidth: 1.5 }))]);
}
