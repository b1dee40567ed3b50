// Puts the page together.
function addSummary() {
    const { summary } = report;
    const fact = (name, value) => value ? [make("dt", {}, name), make("dd", {}, value)] : [];
    const [nx, ny, nz] = report.grid;
    const isClean = !report.findings.some(finding => finding.severity !== "note");
    document.getElementById("content").append(make("section", { id: "summary", "aria-label": "Summary" }, make("h1", {}, summary.title || summary.deck),
        make("dl", {}, fact("Deck", summary.deck), fact("Read for", report.target), fact("Units", report.system),
            fact("Grid", nx ? `${nx} × ${ny} × ${nz} = ${(nx * ny * nz).toLocaleString("en")} cells` : ""),
            fact("Time", `${summary.start || "no start"} to ${summary.end || "no end"}, ${summary.reports} report steps`),
            fact("Wells", `${summary.wells.length} in ${summary.groups.length} groups`), fact("Options", summary.options.join(" ")),
            fact("Findings", isClean ? "no errors and no warnings" : `${report.findings.length}, see below`)),
        make("div", { class: "two" },
            make("div", {}, make("h3", {}, "Sections"), makeTable(["Section", "Keywords"], summary.sections.map(row => [row.section || "before the first", row.keywords]), 1)),
            make("div", {}, make("h3", {}, "Sizes"), makeTable(["Keyword", "Sizes"], summary.sizes.map(row => [row.keyword,
                Object.entries(row.sizes).map(([name, value]) => `${name} ${value}`).join(", ")]))))));
    sections.push(["summary", "Summary"]);
}

function addFindings() {
    const files = new Map();
    for (const finding of report.findings)
        files.set(finding.file, [...(files.get(finding.file) || []), finding]);
    const one = finding => [make("p", {}, make("b", { class: finding.severity }, finding.severity), ` line ${finding.line}: ${finding.message} [${finding.code}]`
        + (finding.more ? `, and ${finding.more} more like it` : "") + (finding.hint ? `; ${finding.hint}` : "")), finding.excerpt ? make("pre", {}, finding.excerpt) : ""];
    addSection("findings", "Findings", files.size ? [...files].map(([file, list]) => make("section", {}, make("h3", {}, file), list.flatMap(one)))
        : make("p", {}, "None."), make("h3", {}, "Files"), makeTable(["File", "Bytes", "Keywords"],
        report.summary.files.map(file => ["\u00a0".repeat(2 * file.depth) + file.name, file.bytes.toLocaleString("en"), file.keywords]), 1));
}

function setUpTheme() {
    const page = document.documentElement, button = document.getElementById("theme");
    const set = theme => {
        page.dataset.theme = theme;
        button.textContent = theme === "dark" ? "Light" : "Dark";
    };
    set(matchMedia("(prefers-color-scheme: dark)").matches ? "dark" : "light");
    button.addEventListener("click", () => {
        set(page.dataset.theme === "dark" ? "light" : "dark");
        redraws.forEach(redraw => redraw());
    });
}

async function start() {
    setUpTheme();
    const loading = document.getElementById("loading");
    if (typeof DecompressionStream === "undefined") {
        loading.textContent = "This browser can't unpack the data of the report. Expected a browser of 2023 or later.";
        return;
    }
    report = JSON.parse(new TextDecoder().decode(await unpack("data")));
    loading.remove();
    for (const add of [addSummary, addCells, addTables, addWells, addRates, addGroups, addEvents, addFindings])
        add();
    document.getElementById("sections").append(...sections.map(([id, title]) => make("a", { href: "#" + id }, title)));
}
start();
