// Rates, targets and limits of wells and groups over time.

/// What a well or a group has at each step: what it was last given, null before that, and once another keyword controls it.
function courseOf(deck, series, name) {
    const controls = new Set(deck.series.filter(one => one.of === series.of).map(one => one.keyword));
    const well = series.of === "well" && deck.wells[name], given = new Map(series.values[name] || []), states = new Map(well ? well.states : []);
    const others = new Set((well ? well.events : []).filter(([, keyword]) => controls.has(keyword) && keyword !== series.keyword).map(([step]) => step));
    const values = [];
    let value = null, isOpen = true;
    for (let step = 0; step < deck.steps.length; ++step) {
        if (others.has(step)) value = null;
        if (given.has(step)) value = given.get(step);
        if (states.has(step)) isOpen = ["produces", "injects", ""].includes(states.get(step));
        values.push(isOpen || value === null ? value : 0);
    }
    return values;
}

/// Null where no well has a value.
function totalOf(deck, series) {
    return Object.keys(series.values).map(name => courseOf(deck, series, name))
        .reduce((sums, values) => sums.map((sum, step) => sum === null ? values[step] : sum + (values[step] || 0)), new Array(deck.steps.length).fill(null));
}

function addRates() {
    const keyOf = series => `${series.keyword} ${series.item}`;
    const all = new Map(decks.flatMap(deck => deck.series).map(series => [keyOf(series), series]));
    if (!all.size) return;
    const [canvas, box] = makeChart("Rates and targets over time");
    const titleOf = series => withUnit(keyOf(series), series.unit);
    let key = ([...all].find(([, series]) => series.isRate) || [...all][0])[0], wanted = "";
    const namesOf = () => inOrder(decks.flatMap(deck => deck.series.filter(one => keyOf(one) === key).flatMap(one => Object.keys(one.values))));
    const coursesOf = deck => {
        const series = deck.series.find(one => keyOf(one) === key);
        if (!series) return [];
        if (wanted) return series.values[wanted] ? [[wanted, courseOf(deck, series, wanted)]] : [];
        return series.isRate && series.of === "well" ? [["all wells", totalOf(deck, series)]]
            : Object.keys(series.values).map(name => [name, courseOf(deck, series, name)]); // pressures don't add up, nor do groups
    };
    function show() {
        const [first, last] = timeSpan(), lines = decks.flatMap((deck, number) => coursesOf(deck).map(([label, values], i) => ({
            label: ofDeck(label, deck), stepped: true, data: values.map((y, step) => ({ x: timeOf(deck, step), y: y === null ? NaN : y })),
            ...lineStyle(i, { number }, { pointRadius: 2 }) })));
        draw(canvas, "line", lines, "Date", titleOf(all.get(key)), { x: { ticks: { callback: dateOf, maxRotation: 0, autoSkipPadding: 24 }, own: { min: first, max: last, afterBuildTicks: scale => { scale.ticks = marksOf([first, last]).map(value => ({ value })); } } },
            tooltip: { title: items => dateOf(items[0].parsed.x) } });
    }
    const place = make("span");
    const choose = chosen => {
        key = chosen;
        const names = namesOf();
        if (!names.includes(wanted)) wanted = "";
        place.replaceChildren(makeSelect(all.get(key).of === "well" ? "Well" : "Group", [["", "all"], ...names.map(name => [name, name])], wanted, value => { wanted = value; show(); }));
        show();
    };
    redraws.push(show);
    setTimeout(() => choose(key));
    addSection("rates", "Rates and targets", make("div", { class: "controls" },
        makeSelect("Quantity", [...all].map(([name, series]) => [name, titleOf(series)]), key, choose), place),
    box, make("p", { class: "note" }, "What the deck gives, held until it gives another value; rates of all wells are added up, and a well that is shut counts as 0."));
}
