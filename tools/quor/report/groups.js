// The tree of groups as it is at a date.
function addGroups() {
    const times = unique(decks.flatMap(deck => deck.groups.map(([step]) => timeOf(deck, step)))).sort((one, other) => one - other);
    if (!times.length) return;
    const place = make("div", { class: decks.length > 1 ? "two" : "" });
    const date = make("output", { for: "groups-at" });
    const show = at => {
        date.textContent = dateOf(times[at]);
        place.replaceChildren(...decks.map(deck => make("div", {}, deck.label ? make("h3", {}, deck.label) : "", treeAt(deck, times[at]))));
    };
    const slider = make("input", { type: "range", id: "groups-at", min: 0, max: times.length - 1, value: times.length - 1, oninput: () => show(Number(slider.value)) });
    show(times.length - 1);
    addSection("groups", "Groups", times.length > 1 ? make("div", { class: "controls" }, make("label", {}, "As at ", slider, " ", date)) : "",
        place, make("p", { class: "note" }, "Each group with its own wells; what is marked was placed at that date."));
}

function treeAt(deck, time) {
    const above = new Map(), wells = new Map(), isNew = new Set();
    for (const [step, name, parent, isWell] of deck.groups) {
        if (timeOf(deck, step) > time) break;
        (isWell ? wells : above).set(name, parent);
        if (timeOf(deck, step) === time && step > 0) isNew.add((isWell ? " " : "") + name);
    }
    // A group that only wells or others name hangs below the root, which no other is above.
    const root = deck.rootGroup;
    for (const name of [...above.values(), ...wells.values()]) {
        if (name !== root && !above.has(name)) above.set(name, root);
    }
    const mark = (name, key) => isNew.has(key) ? make("mark", {}, name) : name;
    const seen = new Set(); // a tree in a circle has no end
    const branch = name => {
        if (seen.has(name)) return "";
        seen.add(name);
        const own = [...wells].filter(([, group]) => group === name).map(([well]) => well);
        return make("li", {}, make("b", {}, mark(name, name)), " ", own.flatMap((well, i) => [i ? ", " : "", mark(well, " " + well)]),
            make("ul", {}, [...above].filter(([, parent]) => parent === name).map(([child]) => branch(child))));
    };
    return make("ul", { class: "tree" }, branch(root));
}
