// What differs between two decks.
function addComparison() {
    if (!report.changes) return;
    const { counts, groups, arrays, left } = report.changes, [a, b] = decks;
    const placeOf = (deck, place) => place ? `${deck.label} ${place.file}:${place.line}` : "";
    const rows = groups.flatMap(group => group.changes.map(change => [group.section || "before the first", group.step, change.change,
        `${change.keyword || "report step"} ${change.identity || ""}`.trim(), ...(change.text ? [change.text, "", ""] : [change.item || "", change.before ?? "", change.after ?? ""]), [placeOf(a, change.a), placeOf(b, change.b)].filter(Boolean).join(", ")]));
    const place = make("div");
    const show = wanted => place.replaceChildren(makeTable("Changes", ["Section", "Date", "Change", "Keyword", "Item", a.label, b.label, "Where"],
        rows.filter(row => row.some(text => text.toUpperCase().includes(wanted.toUpperCase())))));
    const field = make("input", { type: "search", oninput: () => show(field.value), placeholder: "part of a row" });
    show("");
    addSection("differences", "Differences",
        make("p", {}, `From ${a.label} to ${b.label}: ${counts.changed} changed, ${counts.added} added, ${counts.removed} removed.`),
        rows.length ? make("div", {}, make("div", { class: "controls" }, make("label", {}, "Rows with ", field)), place) : make("p", {}, "The data of the decks are the same."),
        left ? make("p", { class: "note" }, `${left} more changes; 'quor diff' lists all.`) : "",
        arrays.length ? make("div", {}, make("h3", {}, "Arrays of cells that differ"), makeTable("Arrays that differ", ["Array", "Cells that differ", "of", "Greatest difference"],
            arrays.map(array => [array.name, array.differing.toLocaleString("en"), array.cells.toLocaleString("en"), short(array.greatest) + " " + array.unit]), 1)) : "");
}
