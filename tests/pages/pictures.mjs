// Compares pictures by a tolerance. The tree has them in seen/, small, as someone looked at them and found them right.
import { existsSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import path from "node:path";
import pixelmatch from "pixelmatch";
import { PNG } from "pngjs";

/// Each pixel is the mean of a square, so that single letters and thin lines hardly matter.
function shrink({ width, height, data }, size) {
    const small = new PNG({ width: Math.floor(width / size), height: Math.floor(height / size) });
    for (let at = 0; at < small.data.length; ++at) {
        const pixel = at >> 2, left = pixel % small.width * size, top = Math.floor(pixel / small.width) * size;
        let sum = 0;
        for (let i = 0; i < size * size; ++i)
            sum += data[4 * ((top + Math.floor(i / size)) * width + left + i % size) + at % 4];
        small.data[at] = Math.round(sum / size / size);
    }
    return small;
}

/// The part of the pixels that differ, all if the sizes do; `marks`: the picture in which they are marked.
function partThatDiffers(a, b, marks) {
    if (a.width !== b.width || a.height !== b.height) return 1;
    return pixelmatch(a.data, b.data, marks?.data, a.width, a.height, { threshold: 0.1, includeAA: true }) / (a.width * a.height);
}

export const differ = (one, other) => partThatDiffers(PNG.sync.read(Buffer.from(one)), PNG.sync.read(Buffer.from(other)));

/// Compares with the picture of that name in seen/ of the tree, and leaves the small one in seen/ of `folder`. `most`: the part of the
/// pixels that may differ. The text says what is wrong; empty if nothing is.
export function compareWithSeen(tree, folder, name, picture, size, most) {
    const now = shrink(PNG.sync.read(Buffer.from(picture)), size), file = path.join("seen", `${name}.png`), kept = path.join(tree, file);
    mkdirSync(path.join(folder, "seen"), { recursive: true });
    writeFileSync(path.join(folder, file), PNG.sync.write(now));
    if (!existsSync(kept)) return `${kept} is missing`;
    const before = PNG.sync.read(readFileSync(kept)), marks = new PNG({ width: now.width, height: now.height });
    const part = partThatDiffers(before, now, marks);
    if (part <= most) return "";
    writeFileSync(path.join(folder, "seen", `${name}-marks.png`), PNG.sync.write(marks));
    return `${name} differs from ${kept} in ${(100 * part).toFixed(1)} % of its pixels`;
}
