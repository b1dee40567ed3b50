// Puts the page together.
/// Facts of a deck: name and value, empty for one that it doesn't have.
function factsOf(deck) {
    const { summary } = deck, [nx, ny, nz] = deck.grid;
    const isClean = !deck.findings.some(finding => finding.severity !== "note");
    return [["Deck", summary.deck], ["Title", decks.length > 1 ? summary.title : ""], ["Read for", deck.target], ["Units", deck.system],
        ["Grid", nx ? `${nx} × ${ny} × ${nz} = ${(nx * ny * nz).toLocaleString("en")} cells` : ""],
        ["Time", summary.start || summary.reports ? `${summary.start || "no start"} to ${summary.end || "no end"}, ${summary.reports} report steps` : ""],
        ["Wells", summary.wells.length ? `${summary.wells.length} in ${summary.groups.length} groups` : ""], ["Options", summary.options.join(" ")],
        ["Findings", isClean ? "no errors and no warnings" : `${deck.findings.length}, see below`]];
}

function addSummary() {
    const { summary } = report, facts = decks.map(factsOf);
    const differ = values => values.some(value => value !== values[0]);
    const content = decks.length > 1
        ? makeTable("Facts", ["Fact", ...decks.map(deck => deck.label), "Differs"], facts[0].map(([name], i) => facts.map(list => list[i][1])).map((values, i) => [facts[0][i][0], ...values.map(value => value || null), differ(values) && i > 0 ? "yes" : ""]))
        : make("dl", {}, facts[0].filter(([, value]) => value).map(([name, value]) => [make("dt", {}, name), make("dd", {}, value)]));
    const sizesOf = deck => deck.summary.sizes.map(row => [row.keyword, Object.entries(row.sizes).map(([name, value]) => `${name} ${value}`).join(", ")]);
    document.getElementById("content").append(make("section", { id: "summary", "aria-label": "Summary" },
        make("h1", {}, decks.length > 1 ? decks.map(deck => deck.label).join(" and ") : summary.title || summary.deck), content,
        decks.map(deck => make("div", { class: "two" },
            make("div", {}, make("h2", {}, ofDeck("Sections", deck)), makeTable(ofDeck("Sections", deck), ["Section", "Keywords"], deck.summary.sections.map(row => [row.section || "before the first", row.keywords]), 1)),
            make("div", {}, make("h2", {}, ofDeck("Sizes", deck)), makeTable(ofDeck("Sizes", deck), ["Keyword", "Sizes"], sizesOf(deck)))))));
    sections.push(["summary", "Summary"]);
}

function findingsOf(deck) {
    const files = new Map();
    for (const finding of deck.findings)
        files.set(finding.file, [...(files.get(finding.file) || []), finding]);
    const one = finding => [make("p", {}, make("b", { class: finding.severity }, finding.severity), ` line ${finding.line}: ${finding.message} [${finding.code}]`
        + (finding.more ? `, and ${finding.more} more like it` : "") + (finding.hint ? `; ${finding.hint}` : "")), finding.excerpt ? make("pre", { tabindex: "0" }, finding.excerpt) : ""];
    return [decks.length > 1 ? make("h3", {}, deck.label) : "", files.size ? [...files].map(([file, list]) => make("section", {}, make("h3", {}, file), list.flatMap(one)))
        : make("p", {}, "None."), make("h3", {}, ofDeck("Files", deck)), makeTable(ofDeck("Files", deck), ["File", "Bytes", "Keywords"],
        deck.summary.files.map(file => ["\u00a0".repeat(2 * file.depth) + file.name, file.bytes.toLocaleString("en"), file.keywords]), 1)].flat();
}

function addFindings() {
    addSection("findings", "Findings", decks.flatMap(findingsOf));
}

function setUpTheme() {
    const page = document.documentElement, button = document.getElementById("theme");
    const set = theme => {
        page.dataset.theme = theme;
        button.textContent = theme === "dark" ? "Light" : "Dark";
    };
    const change = theme => {
        set(theme);
        redraws.forEach(redraw => redraw());
    };
    const other = () => page.dataset.theme === "dark" ? "light" : "dark";
    set(matchMedia("(prefers-color-scheme: dark)").matches ? "dark" : "light");
    button.addEventListener("click", () => change(other()));
    let isDark = false; // on the screen, while paper is white
    window.addEventListener("beforeprint", () => {
        isDark = page.dataset.theme === "dark";
        if (isDark) change("light");
    });
    window.addEventListener("afterprint", () => isDark && change("dark"));
}

async function start() {
    setUpTheme();
    report = JSON.parse(new TextDecoder().decode(await unpack("data")));
    decks = [report, report.other].filter(Boolean);
    document.getElementById("loading").remove();
    for (const add of [addSummary, addComparison, addCells, addTables, addLift, addWells, addRates, addGroups, addEvents, addFindings])
        add();
    document.getElementById("sections").append(...sections.map(([id, title]) => make("a", { href: "#" + id }, title)));
}
start();
