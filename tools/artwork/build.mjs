// Draws every picture of the game into data/icons and data/events.
//
//     npm install && npm run build                     the pictures
//     npm run build -- --sheets <folder>               contact sheets as well, to look at
//     npm run check                                    writes nothing; names the files that would change
import fs from 'node:fs';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { packBmp, packIco } from './ico.mjs';
import { encodePng, rasterise } from './raster.mjs';
import { sheet } from './sheet.mjs';
import { CONVOY, DIGITS, ROLES, SIDES, unitSvg } from './units.mjs';
import { EVENTS, eventSvg } from './events.mjs';
import { MARKS, markSvg } from './marks.mjs';

const SIZES = [32, 48, 96];
const BMP_SIZE = 64;
const DATA = path.resolve(path.dirname(fileURLToPath(import.meta.url)), '../../data');
const asked = process.argv.indexOf('--sheets');
const SHEETS = asked >= 0 ? process.argv[asked + 1] : null;
const CHECK = process.argv.includes('--check');

const drawAll = (draw, sizes = SIZES) => sizes.map((size) => ({ size, png: encodePng(rasterise(draw(size))) }));

let bytes = 0;
const differ = [];
function write(folder, name, content) {
    const file = path.join(DATA, folder, name);
    bytes += content.length;
    if (CHECK) {
        if (!fs.existsSync(file) || !content.equals(fs.readFileSync(file))) differ.push(`${folder}/${name}`);
    } else {
        fs.mkdirSync(path.dirname(file), { recursive: true });
        fs.writeFileSync(file, content);
    }
}

const units = [];
for (const [i, side] of SIDES.entries()) {
    for (const role of ROLES) {
        for (const digit of DIGITS) {
            units.push({
                name: `${side.letter}${role.stem}${digit}.ico`,
                images: drawAll((size) => unitSvg(role, i, digit, size)),
            });
        }
    }
    units.push({
        name: `${side.letter}${CONVOY.stem}.ico`,
        images: drawAll((size) => unitSvg(CONVOY, i, 0, size)),
    });
}
const events = EVENTS.map((event) => ({
    name: `${event[0]}.ico`,
    images: drawAll((size) => eventSvg(event, size)),
}));
const marks = MARKS.map((mark) => ({
    name: mark[0],
    images: drawAll((size) => markSvg(mark, size), [...SIZES, ...(mark[2] ?? [])].sort((a, b) => a - b)),
}));

for (const { name, images } of units) write('icons', name, packIco(images));
for (const { name, images } of events) write('events', name, packIco(images));
for (const [i, mark] of MARKS.entries()) {
    if (mark[0].endsWith('.bmp')) {
        const { width, height, rgba } = rasterise(markSvg(mark, BMP_SIZE));
        write('icons', mark[0], packBmp(width, height, rgba));
    } else {
        write('icons', mark[0], packIco(marks[i].images));
    }
}
console.log(`${units.length} units, ${events.length} events, ${marks.length} marks, ${bytes} bytes`);

if (SHEETS) {
    fs.mkdirSync(SHEETS, { recursive: true });
    for (const [name, cells] of Object.entries({ units, events, marks })) {
        for (const [show, times] of [[32, 1], [32, 3], [48, 2], [96, 1]]) {
            fs.writeFileSync(path.join(SHEETS, `${name}-${show}x${times}.png`),
                             sheet(cells, { show, times, columns: 14, ground: '#b9c9a0' }));
        }
    }
}

if (differ.length > 0) {
    console.error(`differ from the committed files: ${differ.join(' ')}`);
    process.exitCode = 1;
}
