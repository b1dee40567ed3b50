// Looks at the manual and at reports in a browser as users would, prints what it measures, and fails if something is wrong.
// node look.mjs FOLDER TREE: it has manual/, and the reports field.html, compared.html and large.html. Pictures are put there too,
// and compared with those in TREE/seen.
import { readFileSync, readdirSync } from "node:fs";
import path from "node:path";
import puppeteer from "puppeteer-core";
import { compareWithSeen, differ } from "./pictures.mjs";

const [folder, tree] = process.argv.slice(2).map(name => path.resolve(name));
const axe = readFileSync(new URL(import.meta.resolve("axe-core/axe.min.js")), "utf8");
const wrong = [];
const say = (isRight, text) => {
    if (!isRight) wrong.push(text);
    console.log(isRight ? text : `WRONG: ${text}`);
};

const browser = await puppeteer.launch({ executablePath: "/usr/bin/chromium", args: ["--no-sandbox", "--allow-file-access-from-files"],
    env: { ...process.env, FONTCONFIG_FILE: path.join(tree, "fonts.conf") } });
const page = await browser.newPage();
const errors = [];
page.on("pageerror", error => errors.push(`${page.url()}: ${error.message}`));
page.on("console", message => message.type() === "error" && errors.push(`${page.url()}: ${message.text()}`));
page.on("requestfailed", request => errors.push(`${request.url()}: not found`));

const sizes = { wide: { width: 1280, height: 900 }, narrow: { width: 390, height: 844 } };
async function open(file, theme = "light", size = "wide") {
    await page.setViewport(sizes[size]);
    await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: theme }]);
    await page.goto(`file://${folder}/${file}`, { waitUntil: "load" });
}
const isShown = () => page.waitForFunction(() => !document.getElementById("loading") && [...document.querySelectorAll(".chart canvas")].every(canvas => Chart.getChart(canvas))
    && [...document.querySelectorAll(".map")].every(map => map.hasAttribute("aria-label")), { timeout: 60000 });

/// Rules of accessibility that the page breaks, and whether it is wider than the window.
async function judge(file, theme, size) {
    await page.evaluate(axe);
    const { violations } = await page.evaluate(() => axe.run(document, { preload: false, runOnly: ["wcag2a", "wcag2aa", "wcag21aa", "best-practice"] }));
    for (const { id, nodes } of violations)
        say(false, `${file}, ${theme}, ${size}: ${id}, ${nodes.length} times, first ${nodes[0].html.slice(0, 120)}`);
    const [needs, has] = await page.evaluate(() => [document.documentElement.scrollWidth, innerWidth]);
    if (needs > has) say(false, `${file}, ${size}: ${needs} pixels wide in a window of ${has}`);
    for (const texts of await page.evaluate(textsOnTexts)) say(false, `${file}, ${theme}, ${size}: ${texts}`);
    await page.screenshot({ path: path.join(folder, `${nameOf(file)}-${theme}-${size}.png`), fullPage: size === "wide" });
}
const nameOf = text => text.replace(/\W+/g, "-").toLowerCase();

/// Texts that are over others, where they are seen.
function textsOnTexts() {
    const places = [], found = [];
    const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT), range = document.createRange();
    while (walker.nextNode()) {
        const { parentElement: parent, data } = walker.currentNode, frame = parent.closest(".wide, .bars, pre");
        const isCut = frame && getComputedStyle(frame).overflowY !== "visible";
        if (!data.trim() || parent.closest("header, script, select, .skip") || !parent.checkVisibility()) continue;
        const edge = isCut ? frame.getBoundingClientRect() : { left: 0, top: -1e6, right: 1e6, bottom: 1e6 };
        range.selectNodeContents(walker.currentNode);
        for (const box of range.getClientRects())
            places.push({ data: data.trim(), left: Math.max(box.left, edge.left), top: Math.max(box.top, edge.top), right: Math.min(box.right, edge.right), bottom: Math.min(box.bottom, edge.bottom) });
    }
    places.sort((one, other) => one.top - other.top);
    places.forEach((one, i) => {
        for (let j = i + 1; j < places.length && places[j].top < one.bottom - 5; ++j) {
            const width = Math.min(one.right, places[j].right) - Math.max(one.left, places[j].left), height = Math.min(one.bottom, places[j].bottom) - places[j].top;
            if (width > 2 && height > 5) found.push(`'${one.data}' and '${places[j].data}' are over each other`);
        }
    });
    return found.slice(0, 5);
}

/// Pictures of the first screen of a page of the manual, and of the maps and plots of a report, against those that are known to be right.
async function comparePictures(file) {
    await page.addStyleTag({ content: "header { position: static !important; }" });
    const parts = file.startsWith("manual") ? [[nameOf(file), page, 10, 0.03]] : await Promise.all((await page.$$(file === "field.html" ? ".map, .chart, .bars" : ".map, .bars")).map(async part => {
        const label = await part.evaluate(element => (element.matches(".chart") ? element.firstChild : element).getAttribute("aria-label"));
        return [nameOf(`${file} ${label.replace(/ in layer.*/, "")}`), part, 4, 0.003];
    }));
    for (const [name, part, size, most] of parts) {
        const text = compareWithSeen(tree, folder, name, await part.screenshot(), size, most);
        if (text) say(false, text);
    }
    compared += parts.length;
}
let compared = 0;

/// On paper, also of a page that is dark on the screen.
async function print(file) {
    await open(file, "dark");
    if (!file.startsWith("manual")) await isShown();
    await page.emulateMediaType("print");
    await page.setViewport({ width: 718, height: 1000 }); // A4 between its margins
    await page.evaluate(() => { dispatchEvent(new Event("beforeprint")); });
    await new Promise(done => setTimeout(done, 1000));
    for (const texts of await page.evaluate(textsOnTexts)) say(false, `${file}, printed: ${texts}`);
    const needs = await page.evaluate(() => Math.max(document.documentElement.scrollWidth, ...[...document.querySelectorAll("canvas")].map(canvas => canvas.getBoundingClientRect().right)));
    const cut = await page.evaluate(() => [...document.querySelectorAll("pre, .wide")].filter(part => getComputedStyle(part).overflowX !== "visible" && part.scrollWidth > part.clientWidth).length);
    say(needs <= 718 && !cut, `${file}, printed: ${Math.ceil(needs)} pixels of 718, ${cut} tables and examples cut off`);
    await page.screenshot({ path: path.join(folder, `${nameOf(file)}-print.png`), fullPage: true });
    await page.emulateMediaType("screen");
}

/// A page that is made dark is as one that was opened dark; and all is as before when theme, layer and window are what they were.
async function changeAndChangeBack(file) {
    const settled = () => new Promise(done => setTimeout(done, 1000));
    const picture = async () => { // once plots are drawn and no longer move: two in a row are the same
        let last = await page.screenshot({ fullPage: true });
        for (let i = 0; i < 20; ++i) {
            await new Promise(done => setTimeout(done, 250));
            const next = await page.screenshot({ fullPage: true });
            if (Buffer.compare(Buffer.from(last), Buffer.from(next)) === 0) break;
            last = next;
        }
        return last;
    };
    const press = async () => { await page.$eval("#theme", button => button.click()); await settled(); };
    const move = layer => page.$eval("#layer", (slider, to) => { slider.value = to; slider.dispatchEvent(new Event("input")); }, layer);
    await open(file, "dark");
    await isShown();
    const dark = await picture();
    await open(file);
    await isShown();
    const before = await picture();
    await press();
    const made = differ(dark, await picture());
    await move(2);
    await page.setViewport(sizes.narrow);
    await settled();
    await page.setViewport(sizes.wide);
    await move(await page.$eval("#layer", slider => slider.defaultValue));
    await press();
    const back = differ(before, await picture());
    say(made < 0.0005 && back < 0.0005, `${file}: ${(100 * made).toFixed(3)} % of the pixels differ when it is made dark, ${(100 * back).toFixed(3)} % after changes that are reverted`);
}

async function judgeAll(files, ready) {
    for (const file of files) {
        for (const [theme, size] of [["light", "wide"], ["dark", "wide"], ["light", "narrow"], ["dark", "narrow"]]) {
            await open(file, theme, size);
            await ready();
            await judge(file, theme, size);
            if (theme === "light" && size === "wide") await comparePictures(file);
        }
    }
    console.log(`${files.length} pages, light and dark, wide and narrow, by the rules of accessibility`);
}

/// A word with one mistake of a kind: letters swapped, one left out, one doubled, another one in its place.
function misspell(word, kind) {
    const at = 1 + (word.length * 7 + kind) % (word.length - 2);
    return word.slice(0, at) + [word[at + 1] + word[at] + word.slice(at + 2), word.slice(at + 1), word[at] + word.slice(at), "X" + word.slice(at + 1)][kind];
}

async function searchManual() {
    await open("manual/index.html");
    await page.keyboard.press("/");
    await page.waitForFunction(() => manualRows.length > 0 && typeof lunr !== "undefined");
    const names = (await page.evaluate(() => manualRows.map(row => row[0]))).filter(name => /^[A-Z]{6,}$/.test(name));
    const asked = names.filter((_, i) => i % Math.ceil(names.length / 200) === 0);
    let found = 0, slowest = 0;
    for (const [i, name] of asked.entries()) {
        const [best, time] = await page.evaluate(text => {
            const field = document.getElementById("search"), start = performance.now();
            field.value = text;
            field.dispatchEvent(new Event("input"));
            return Promise.resolve().then(() => new Promise(done => setTimeout(done))).then(() =>
                [[...document.querySelectorAll("#results b")].slice(0, 3).map(title => title.textContent), performance.now() - start]);
        }, misspell(name, i % 4));
        if (best.includes(name)) ++found;
        slowest = Math.max(slowest, time);
    }
    say(found >= 0.9 * asked.length, `search: ${found} of ${asked.length} names with a typing mistake among the first three, the slowest in ${slowest.toFixed(0)} ms`);
    await page.$eval("#search", field => { field.value = ""; });
    await page.type("#search", "WCONPRD");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowUp");
    await Promise.all([page.waitForNavigation(), page.keyboard.press("Enter")]);
    say(await page.title() === "WCONPROD", `keyboard: / W C O N P R D Enter opens ${await page.title()}`);
    await page.keyboard.press("Tab");
    say(await page.evaluate(() => document.activeElement.className) === "skip", "keyboard: the first tab stop leads to the content");
}

async function openAllPages() {
    const pages = readdirSync(path.join(folder, "manual"), { recursive: true }).filter(name => name.endsWith(".html"));
    const start = Date.now(), before = errors.length;
    for (const name of pages)
        await page.goto(`file://${folder}/manual/${name}`, { waitUntil: "load" });
    say(errors.length === before, `${pages.length} pages of the manual opened in ${((Date.now() - start) / 1000).toFixed(0)} s, ${errors.length - before} errors on the console`);
}

async function timeLargeReport() {
    await open("large.html");
    await isShown();
    const bytes = readFileSync(path.join(folder, "large.html")).length;
    const paint = await page.evaluate(() => performance.getEntriesByName("first-contentful-paint")[0].startTime);
    const times = await page.evaluate(async () => {
        const slider = document.getElementById("layer"), list = [];
        for (let i = 0; i < 30; ++i) {
            slider.value = 1 + i % Number(slider.max);
            const start = performance.now();
            slider.dispatchEvent(new Event("input"));
            await new Promise(done => requestAnimationFrame(() => setTimeout(done)));
            list.push(performance.now() - start);
        }
        return list.sort((a, b) => a - b);
    });
    say(bytes > 45e6 && paint < 2000, `report of ${(bytes / 1e6).toFixed(0)} MB: first paint after ${paint.toFixed(0)} ms`);
    say(times[15] < 60, `a layer of a million cells: ${times[15].toFixed(0)} ms in the middle, ${times[29].toFixed(0)} ms at most`);
}

await searchManual();
await judgeAll(["index", "section/SCHEDULE", "simulator/Carrow", "keyword/WCONPROD", "keyword/EQUIL", "keyword/PORO", "code/unclosed-data", "all", "measurements", "names/well"].map(name => `manual/${name}.html`), async () => {});
await judgeAll(["field.html", "compared.html"], isShown);
for (const file of ["manual/index.html", "manual/keyword/WCONPROD.html"])
    await print(file);
console.log(`${compared} pictures compared with those in the tree`);
for (const file of ["field.html", "compared.html"]) {
    await changeAndChangeBack(file);
    await print(file);
}
await timeLargeReport();
await openAllPages();
errors.slice(0, 10).forEach(error => say(false, error));
await browser.close();
console.log(wrong.length ? `${wrong.length} wrong` : "all right");
process.exit(wrong.length ? 1 : 0);
