// SVG to pixels. One font file is pinned: with the system's fonts the pictures would change from machine to
// machine, and with none resvg leaves the letters out without a word.
import fs from 'node:fs';
import zlib from 'node:zlib';
import { Resvg } from '@resvg/resvg-js';

const FONT = process.env.ARTWORK_FONT ?? '/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf';
export const FONT_FAMILY = 'DejaVu Sans';

if (!fs.existsSync(FONT)) {
    throw new Error(`font file ${FONT} is missing: install fonts-dejavu-core, or name it in ARTWORK_FONT`);
}

/** {width, height, rgba}: straight (not premultiplied) colour, four bytes a pixel. */
export function rasterise(svg) {
    const image = new Resvg(svg, {
        font: { loadSystemFonts: false, fontFiles: [FONT], defaultFontFamily: FONT_FAMILY },
    }).render();
    const rgba = Buffer.from(image.pixels);
    for (let i = 0; i < rgba.length; i += 4) {
        const alpha = rgba[i + 3];
        if (alpha > 0 && alpha < 255) {
            for (let c = 0; c < 3; c++) rgba[i + c] = Math.min(255, Math.round((rgba[i + c] * 255) / alpha));
        }
    }
    return { width: image.width, height: image.height, rgba };
}

function chunk(name, data) {
    const out = Buffer.alloc(12 + data.length);
    out.writeUInt32BE(data.length, 0);
    out.write(name, 4, 'latin1');
    data.copy(out, 8);
    out.writeUInt32BE(zlib.crc32(out.subarray(4, 8 + data.length)), 8 + data.length);
    return out;
}

/** One row filter for the whole picture, the one that packs best: pictures this small gain nothing from more. */
export function encodePng({ width, height, rgba }) {
    const stride = width * 4;
    let best = null;
    for (let filter = 0; filter <= 4; filter++) {
        const raw = Buffer.alloc((stride + 1) * height);
        for (let y = 0; y < height; y++) {
            raw[y * (stride + 1)] = filter;
            for (let x = 0; x < stride; x++) {
                const at = y * stride + x;
                const left = x >= 4 ? rgba[at - 4] : 0;
                const up = y > 0 ? rgba[at - stride] : 0;
                const corner = x >= 4 && y > 0 ? rgba[at - stride - 4] : 0;
                const guess = [0, left, up, (left + up) >> 1, paeth(left, up, corner)][filter];
                raw[y * (stride + 1) + 1 + x] = (rgba[at] - guess) & 255;
            }
        }
        const packed = zlib.deflateSync(raw, { level: 9, memLevel: 9 });
        if (best === null || packed.length < best.length) best = packed;
    }
    const head = Buffer.alloc(13);
    head.writeUInt32BE(width, 0);
    head.writeUInt32BE(height, 4);
    head.set([8, 6, 0, 0, 0], 8);                 // eight bits, RGBA
    return Buffer.concat([
        Buffer.from([0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a]),
        chunk('IHDR', head), chunk('IDAT', best), chunk('IEND', Buffer.alloc(0)),
    ]);
}

function paeth(left, up, corner) {
    const p = left + up - corner;
    const dl = Math.abs(p - left), du = Math.abs(p - up), dc = Math.abs(p - corner);
    return dl <= du && dl <= dc ? left : du <= dc ? up : corner;
}
