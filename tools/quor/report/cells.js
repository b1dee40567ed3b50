// Arrays of cells: a map of a layer, a histogram, a cross plot.
function addCells() {
    const arrays = report.arrays;
    if (!arrays.length) {
        addSection("cells", "Cells", make("p", {}, "The deck gives no array of cells whose values can be worked out."));
        return;
    }
    const ofRole = role => arrays.find(array => array.role === role);
    const first = ofRole("porosity") || arrays[0];
    addSection("cells", "Cells", addMap(arrays, first), make("div", { class: "two" }, addHistogram(arrays, first),
        addCross(arrays, ofRole("porosity") || arrays[0], ofRole("permeability") || arrays[1] || arrays[0])));
}

/// Whether a cell is active, where an array says it.
async function activity() {
    const active = report.arrays.find(array => array.role === "active cells");
    if (!active) return () => true;
    const values = await valuesOf(active);
    return cell => values[cell] !== 0;
}

const choicesOf = arrays => arrays.map(array => [array.name, withUnit(array.name, array.unit)]);
const named = (arrays, name) => arrays.find(array => array.name === name);

function addMap(arrays, first) {
    const [nx, ny, nz] = report.grid;
    let array = first, layer = 1, values = null, least = 0, greatest = 1, isActive = () => true;
    const canvas = make("canvas", { id: "map", role: "img", tabindex: "0" });
    const readout = make("p", { class: "note", "aria-live": "off", id: "readout" }, "Point at a cell to see its value.");
    const slider = make("input", { type: "range", min: 1, max: nz, value: 1, id: "layer", oninput: () => { layer = Number(slider.value); show(); } });
    const layerText = make("output", { for: "layer" }, "");
    const scale = make("span", { id: "scale" }), low = make("span"), high = make("span");
    const wells = Object.entries(report.wells);
    const picture = document.createElement("canvas");
    picture.width = nx;
    picture.height = ny;

    function show() {
        if (!values) return;
        const width = canvas.clientWidth || 600, cell = Math.max(Math.min(width / nx, 560 / ny), 0.5);
        const ratio = window.devicePixelRatio || 1;
        canvas.style.width = nx * cell + "px";
        canvas.style.height = ny * cell + "px";
        canvas.width = nx * cell * ratio;
        canvas.height = ny * cell * ratio;
        const image = new ImageData(nx, ny), offset = (layer - 1) * nx * ny, range = greatest - least || 1;
        for (let i = 0; i < nx * ny; ++i) {
            const value = values[offset + i];
            if (!Number.isFinite(value) || !isActive(offset + i)) continue; // stays transparent
            const colour = scaleColour((value - least) / range);
            image.data.set([colour[0], colour[1], colour[2], 255], 4 * i);
        }
        picture.getContext("2d").putImageData(image, 0, 0);
        const context = canvas.getContext("2d");
        context.setTransform(ratio, 0, 0, ratio, 0, 0);
        context.imageSmoothingEnabled = false;
        context.clearRect(0, 0, nx * cell, ny * cell);
        context.drawImage(picture, 0, 0, nx * cell, ny * cell);
        drawWells(context, cell);
        layerText.textContent = `${layer} of ${nz}`;
        canvas.setAttribute("aria-label", `${array.name} in layer ${layer}: ${short(least)} to ${short(greatest)} ${array.unit}`);
        low.textContent = short(least);
        high.textContent = short(greatest) + " " + array.unit;
    }

    function drawWells(context, cell) {
        context.font = "12px sans-serif";
        for (const [name, well] of wells) {
            const here = well.connections.filter(([, , k1, k2]) => (k1 || 1) <= layer && layer <= (k2 || nz));
            const [i, j] = here.length ? here[0] : well.head;
            if (!i || !j) continue;
            const x = (i - 0.5) * cell, y = (j - 0.5) * cell, isLast = x > 0.85 * nx * cell;
            for (const [ci, cj] of here.length ? here : [[i, j]]) {
                context.beginPath();
                context.arc((ci - 0.5) * cell, (cj - 0.5) * cell, 5, 0, 7);
                context.fillStyle = here.length ? "#000" : "#0000";
                context.fill();
                context.lineWidth = 2;
                context.strokeStyle = "#fff";
                context.stroke();
            }
            context.textAlign = isLast ? "right" : "left";
            context.lineWidth = 3;
            context.strokeStyle = "#fff";
            context.strokeText(name, x + (isLast ? -8 : 8), y + 4);
            context.fillStyle = "#000";
            context.fillText(name, x + (isLast ? -8 : 8), y + 4);
        }
    }

    async function choose(name) {
        array = named(arrays, name);
        values = await valuesOf(array);
        isActive = await activity();
        least = Infinity;
        greatest = -Infinity;
        values.forEach((value, cell) => {
            if (!Number.isFinite(value) || !isActive(cell)) return;
            least = Math.min(least, value);
            greatest = Math.max(greatest, value);
        });
        show();
    }
    canvas.addEventListener("pointermove", event => {
        const box = canvas.getBoundingClientRect();
        const i = Math.floor((event.clientX - box.left) / box.width * nx) + 1, j = Math.floor((event.clientY - box.top) / box.height * ny) + 1;
        if (!values || i < 1 || j < 1 || i > nx || j > ny) return;
        const cell = ((layer - 1) * ny + j - 1) * nx + i - 1;
        const here = wells.filter(([, well]) => well.connections.some(([ci, cj, k1, k2]) => ci === i && cj === j && k1 <= layer && layer <= k2));
        readout.textContent = `Cell ${i} ${j} ${layer}: ${isActive(cell) ? [short(values[cell]), array.unit].filter(Boolean).join(" ") : "not active"}`
            + (here.length ? `; ${here.map(([name]) => name).join(", ")}` : "");
    });
    canvas.addEventListener("keydown", event => {
        const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
        if (!step) return;
        event.preventDefault();
        slider.value = layer = Math.min(Math.max(layer + step, 1), nz);
        show();
    });
    scale.style.background = `linear-gradient(90deg, ${scaleStops.map(stop => `rgb(${stop})`).join(",")})`;
    window.addEventListener("resize", () => { canvas.style.width = "100%"; show(); });
    setTimeout(() => choose(first.name));
    return make("div", {}, make("div", { class: "controls" }, makeSelect("Array", choicesOf(arrays), first.name, choose),
        make("label", {}, "Layer ", slider, " ", layerText), make("span", {}, low, " ", scale, " ", high)),
    canvas, readout, make("p", { class: "note" }, `Cells by their index: I to the right, J downwards, ${nx} by ${ny} by ${nz}. `
        + "A black dot is a connection in this layer, a ring a well without one. Cells that are not active are left out."));
}

function addHistogram(arrays, first) {
    const bins = 40;
    const [canvas, box] = makeChart("Histogram");
    let name = first.name;
    async function show() {
        const array = named(arrays, name), values = await valuesOf(array), isActive = await activity();
        const known = values.filter((value, cell) => Number.isFinite(value) && isActive(cell));
        const least = known.reduce((a, b) => Math.min(a, b), Infinity), greatest = known.reduce((a, b) => Math.max(a, b), -Infinity);
        const width = (greatest - least) / bins || (Math.abs(least) || 1) / 100, counts = new Array(bins).fill(0);
        known.forEach(value => ++counts[Math.min(Math.floor((value - least) / width), bins - 1)]);
        draw(canvas, "bar", [{ label: name, backgroundColor: lineColours[0], barPercentage: 1, categoryPercentage: 1,
            data: counts.map((y, i) => ({ x: least + (i + 0.5) * width, y })) }], withUnit(name, array.unit), "Cells", { x: { own: { offset: false } } });
    }
    redraws.push(show);
    setTimeout(show);
    return make("div", {}, make("h3", {}, "Histogram"), make("div", { class: "controls" },
        makeSelect("Array", choicesOf(arrays), name, chosen => { name = chosen; show(); })), box);
}

function addCross(arrays, x, y) {
    const most = 20000; // points; of more cells every so-manieth
    const [canvas, box] = makeChart("Cross plot");
    let names = [x.name, y.name], isLog = y.role === "permeability";
    async function show() {
        const [a, b] = names.map(name => named(arrays, name));
        const [as, bs] = [await valuesOf(a), await valuesOf(b)], isActive = await activity();
        const stride = Math.ceil(as.length / most), data = [];
        for (let cell = 0; cell < as.length; cell += stride) {
            if (isActive(cell) && Number.isFinite(as[cell]) && Number.isFinite(bs[cell]) && (!isLog || bs[cell] > 0)) data.push({ x: as[cell], y: bs[cell] });
        }
        data.sort((one, other) => one.x - other.x); // Chart.js takes the ends of the axis from the first point and the last
        draw(canvas, "scatter", [{ label: `${b.name} against ${a.name}`, data, pointRadius: 2, backgroundColor: lineColours[0] + "90" }],
            withUnit(a.name, a.unit), withUnit(b.name, b.unit), { y: { type: isLog ? "logarithmic" : "linear" } });
    }
    redraws.push(show);
    setTimeout(show);
    const log = make("input", { type: "checkbox", onchange: () => { isLog = log.checked; show(); } });
    log.checked = isLog;
    return make("div", {}, make("h3", {}, "Cross plot"), make("div", { class: "controls" },
        makeSelect("X", choicesOf(arrays), names[0], chosen => { names[0] = chosen; show(); }),
        makeSelect("Y", choicesOf(arrays), names[1], chosen => { names[1] = chosen; show(); }), make("label", {}, log, " logarithmic")), box);
}
