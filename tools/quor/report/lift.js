// Lift tables: the values along the first axis, a line for each node of the second, at nodes of the others that are chosen.
function addLift() {
    const pairs = pairTables(decks.map(deck => deck.lift));
    if (pairs.length)
        addSection("lift", "Lift tables", make("div", { class: "two" }, pairs.map(plotLift)));
}

function plotLift(pair) {
    const { versions, remark } = versionsOf(pair), { table } = versions[0];
    const title = axis => withUnit(axis.word && axis.word !== axis.name ? `${axis.name} ${axis.word}` : axis.name, axis.unit);
    const name = `${table.keyword} ${table.number}`;
    const [canvas, box] = makeChart(name);
    const chosen = table.axes.map(() => 1);
    const linesOf = version => {
        const { axes, rows } = version.table;
        return rows.filter(row => row.nodes.slice(1).every((node, i) => node === chosen[i + 2])).map((row, i) => ({
            label: ofDeck(`${title(axes[1])} ${short(axes[1].nodes[row.nodes[0] - 1])}`, version.deck),
            data: row.values.map((y, at) => ({ x: axes[0].nodes[at], y })).filter(({ x, y }) => x !== undefined && x !== null && y !== null),
            ...lineStyle(i, version) }));
    };
    const show = () => draw(canvas, "line", versions.flatMap(linesOf), title(table.axes[0]), withUnit(table.values, table.unit));
    redraws.push(show);
    setTimeout(show);
    const selects = table.axes.slice(2).map((axis, i) => axis.nodes.length < 2 ? "" : makeSelect(title(axis),
        axis.nodes.map((node, at) => [at + 1, short(node)]), 1, value => { chosen[i + 2] = Number(value); show(); }));
    return make("div", {}, headOf(name, table.step ? `Since ${table.step}.` : "", remark), make("div", { class: "controls" }, selects), box);
}
