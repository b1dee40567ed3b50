// The map of a layer of an array: of two decks side by side, with the difference where they have the same grid.
const shades = makeShades(scaleStops), differenceShades = makeShades(differenceStops);
const arrayOf = (deck, name) => deck.arrays.find(array => array.name === name);

/// By cell whether it is active, where an array says so; null: all are.
const activities = new Map();
function activity(deck) {
    const active = deck.arrays.find(array => array.role === "active cells");
    if (active && !activities.has(deck))
        activities.set(deck, valuesOf(active).then(values => Uint8Array.from(values, value => value !== 0)));
    return active ? activities.get(deck) : null;
}

function hasOneGrid() {
    return decks.every(deck => String(deck.grid) === String(decks[0].grid));
}

/// Least and greatest value of the active cells of panels; of a difference, as far down as up.
function rangeOf(panels) {
    let least = Infinity, greatest = -Infinity;
    for (const { values, active } of panels) {
        for (let cell = 0; values && cell < values.length; ++cell) {
            const value = values[cell];
            if (!Number.isFinite(value) || (active && !active[cell])) continue;
            if (value < least) least = value;
            if (value > greatest) greatest = value;
        }
    }
    return [least, greatest];
}

function makePanel(deck, title) {
    const canvas = make("canvas", { class: "map", role: "img", tabindex: "0" });
    return { deck, title, canvas, grid: deck.grid, picture: document.createElement("canvas"), values: null, active: null };
}

/// Draws a layer: a pixel a cell, enlarged to the width of the panel.
function drawPanel(panel, layer, name, unit) {
    const { canvas, picture, values, active, grid: [nx, ny, nz] } = panel, cells = nx * ny;
    if (picture.width !== nx || picture.height !== ny) {
        picture.width = nx;
        picture.height = ny;
    }
    const width = canvas.parentElement.clientWidth || 600, cell = Math.min(width / nx, 560 / ny), ratio = window.devicePixelRatio || 1;
    canvas.style.width = nx * cell + "px";
    canvas.style.height = ny * cell + "px";
    canvas.width = nx * cell * ratio;
    canvas.height = ny * cell * ratio;
    const context = canvas.getContext("2d");
    context.setTransform(ratio, 0, 0, ratio, 0, 0);
    canvas.setAttribute("aria-label", [name, panel.title].filter(Boolean).join(", ") + (values && layer <= nz ? ` in layer ${layer}: ${short(panel.least)} to ${short(panel.greatest)} ${unit}` : " is not given"));
    if (!values || layer > nz) return;
    const image = new ImageData(nx, ny), pixels = new Uint32Array(image.data.buffer), offset = (layer - 1) * cells;
    const { least, greatest, colours } = panel, factor = greatest > least ? 255 / (greatest - least) : 0;
    for (let i = 0; i < cells; ++i) {
        const value = values[offset + i];
        if (Number.isFinite(value) && (!active || active[offset + i])) // else it stays transparent
            pixels[i] = colours[Math.round((value - least) * factor)];
    }
    picture.getContext("2d").putImageData(image, 0, 0);
    context.imageSmoothingEnabled = cell < 1;
    context.drawImage(picture, 0, 0, nx * cell, ny * cell);
    drawWells(context, Object.entries(panel.deck.wells), layer, panel.grid, cell);
}

/// Of many wells without their names, which would cover the map. Wells of one cell have one text.
function drawWells(context, wells, layer, [nx, , nz], cell) {
    context.font = "12px sans-serif";
    const texts = new Map();
    for (const [name, well] of wells) {
        const here = well.connections.filter(([, , k1, k2]) => (k1 || 1) <= layer && layer <= (k2 || nz));
        const places = (here.length ? here : [well.head]).filter(([i, j]) => i && j);
        for (const [i, j] of places) {
            context.beginPath();
            context.arc((i - 0.5) * cell, (j - 0.5) * cell, 5, 0, 7);
            context.fillStyle = here.length ? "#000" : "#0000";
            context.fill();
            context.lineWidth = 2;
            context.strokeStyle = "#fff";
            context.stroke();
        }
        if (places.length) texts.set(`${places[0][0]} ${places[0][1]}`, [...(texts.get(`${places[0][0]} ${places[0][1]}`) || []), name]);
    }
    for (const [place, names] of wells.length > 80 ? [] : texts) {
        const [i, j] = place.split(" ").map(Number), x = (i - 0.5) * cell, y = (j - 0.5) * cell, isLast = x > 0.85 * nx * cell;
        context.textAlign = isLast ? "right" : "left";
        context.lineWidth = 3;
        context.strokeStyle = "#fff";
        context.strokeText(names.join(", "), x + (isLast ? -8 : 8), y + 4);
        context.fillStyle = "#000";
        context.fillText(names.join(", "), x + (isLast ? -8 : 8), y + 4);
    }
}

/// What a panel has in a cell, with the wells there.
function cellText(panel, i, j, layer, unit) {
    const [nx, ny, nz] = panel.grid, cell = ((layer - 1) * ny + j - 1) * nx + i - 1;
    if (!panel.values || layer > nz) return "not given";
    const here = panel.isDifference ? [] : Object.entries(panel.deck.wells).filter(([, well]) =>
        well.connections.some(([ci, cj, k1, k2]) => ci === i && cj === j && k1 <= layer && layer <= k2));
    const text = panel.active && !panel.active[cell] ? "not active" : [short(panel.values[cell]), unit].filter(Boolean).join(" ");
    return text + (here.length ? `; ${here.map(([name]) => name).join(", ")}` : "");
}

function makeScale() {
    const bar = make("span", { class: "scale" }), low = make("span"), high = make("span");
    const show = ({ least, greatest, isDifference }, unit) => {
        low.textContent = short(least);
        high.textContent = `${short(greatest)} ${unit}`;
        bar.style.background = `linear-gradient(90deg, ${(isDifference ? differenceStops : scaleStops).map(stop => `rgb(${stop})`).join(",")})`;
    };
    return [make("span", { class: "legend" }, low, " ", bar, " ", high), show];
}

/// The values of the panels for an array, and what its colours mean.
async function fillPanels(panels, name) {
    for (const panel of panels.filter(one => !one.isDifference)) {
        const array = arrayOf(panel.deck, name);
        panel.values = array ? await valuesOf(array) : null;
        panel.active = await activity(panel.deck);
    }
    const own = panels.filter(panel => !panel.isDifference), [least, greatest] = rangeOf(own);
    own.forEach(panel => Object.assign(panel, { least, greatest, colours: shades }));
    for (const panel of panels.filter(one => one.isDifference)) {
        const [a, b] = own;
        panel.values = a.values && b.values ? b.values.map((value, cell) => value - a.values[cell]) : null;
        panel.active = b.active;
        const most = Math.max(...rangeOf([panel]).map(Math.abs));
        Object.assign(panel, { least: -most, greatest: most, colours: differenceShades });
    }
}

/// The layer to show: that one, or if nothing differs in it the first that does.
function layerThatDiffers(panels, layer) {
    const { values, grid: [nx, ny] } = panels.find(panel => panel.isDifference) || panels[0];
    const isOther = (value, cell) => value !== 0 && Number.isFinite(value) && (!panels[1].active || panels[1].active[cell]);
    const first = panels.length < 3 || !values || values.slice((layer - 1) * nx * ny, layer * nx * ny).some((value, i) => isOther(value, (layer - 1) * nx * ny + i))
        ? -1 : values.findIndex(isOther);
    return first < 0 ? layer : 1 + Math.floor(first / (nx * ny));
}

function addMap(names, first) {
    const panels = decks.filter(deck => deck.arrays.length).map(deck => makePanel(deck, deck.label));
    if (panels.length > 1 && hasOneGrid())
        panels.push({ ...makePanel(decks[1], `${decks[1].label} minus ${decks[0].label}`), isDifference: true });
    let name = first, unit = "", layer = 1;
    const nz = Math.max(...panels.map(panel => panel.grid[2]));
    const readout = make("p", { class: "note", id: "readout" }, "Point at a cell to see its value.");
    const setLayer = number => {
        slider.value = layer = Math.min(Math.max(number, 1), nz);
        show();
    };
    const slider = make("input", { type: "range", min: 1, max: nz, value: 1, id: "layer", oninput: () => setLayer(Number(slider.value)) });
    const layerText = make("output", { for: "layer" }, "");
    const scales = panels.map(makeScale);
    const show = () => {
        layerText.textContent = `${layer} of ${nz}`;
        panels.forEach((panel, i) => {
            drawPanel(panel, layer, name, unit);
            scales[i][1](panel, unit);
        });
    };
    const choose = async chosen => {
        name = chosen;
        unit = decks.map(deck => arrayOf(deck, name)).find(Boolean).unit;
        await fillPanels(panels, name);
        setLayer(layerThatDiffers(panels, layer));
    };
    for (const panel of panels) {
        panel.canvas.addEventListener("pointermove", event => {
            const box = panel.canvas.getBoundingClientRect(), [nx, ny] = panel.grid;
            const i = Math.floor((event.clientX - box.left) / box.width * nx) + 1, j = Math.floor((event.clientY - box.top) / box.height * ny) + 1;
            if (!panel.values || i < 1 || j < 1 || i > nx || j > ny) return;
            const shown = hasOneGrid() ? panels : [panel];
            readout.textContent = `Cell ${i} ${j} ${layer}: ` + shown.map(one => (one.title && `${one.title}: `) + cellText(one, i, j, layer, unit)).join("; ");
        });
        panel.canvas.addEventListener("keydown", event => {
            const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
            if (!step) return;
            event.preventDefault();
            setLayer(layer + step);
        });
    }
    window.addEventListener("resize", show);
    setTimeout(() => choose(first));
    const [nx, ny] = panels[0].grid;
    return make("div", {}, make("div", { class: "controls" }, makeSelect("Array", names.map(choiceOf), first, choose),
        make("label", {}, "Layer ", slider, " ", layerText)),
    make("div", { class: panels.length > 1 ? "panels" : "" }, panels.map((panel, i) => make("div", {}, panel.title ? make("h3", {}, panel.title) : "", panel.canvas, scales[i][0]))),
    readout, make("p", { class: "note" }, `Cells by their index: I to the right, J downwards, ${nx} by ${ny} by ${nz}. `
        + "A black dot is a connection in this layer, a ring a well without one. Cells that are not active are left out."
        + (hasOneGrid() ? "" : " The decks have grids of different sizes: no difference is shown.")));
}
