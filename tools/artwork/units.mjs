// Unit symbols: a number code for each role, drawn by milsymbol, laid on the pixel grid of each picture size.
//
// What milsymbol draws is taken apart: its frame and the icon inside are scaled into a fixed box, so that every
// symbol of a side has its frame at the same pixels, and the echelon marks are drawn here, on whole pixels.
import ms from 'milsymbol';
import { FONT_FAMILY } from './raster.mjs';

// Row i is role i. `code` is the end of the twenty-digit code: entity, type, subtype and the two modifiers.
// `zoom` enlarges the icon inside the frame (Blue, Red) where no line of it meets the frame, `shift` moves it down.
export const ROLES = [
    { stem: 'user',  code: '0000000000' },
    { stem: 'ada',   code: '1301000000', letters: 'SR' },
    { stem: 'himad', code: '1301000000', letters: 'HM' },
    { stem: 'abm',   code: '1301000000', letters: 'MD' },
    { stem: 'at',    code: '1204000000' },
    { stem: 'ar',    code: '1205000000', zoom: [1.15, 1.05] },
    { stem: 'cav',   code: '1205010000' },
    { stem: 'fat',   code: '1303000047', zoom: [1.2, 1.05], shift: [-4, -9] },
    { stem: 'fa',    code: '1303010000', zoom: [1.15, 1.05] },
    { stem: 'mrl',   code: '1303014100', zoom: [1.0, 1.0], shift: [6, 4] },
    { stem: 'ssm',   code: '1307000000', zoom: [1.7, 1.7] },
    { stem: 'ah',    code: '1206000300', zoom: [1.0, 1.1], shift: [4, 0] },
    { stem: 'lift',  code: '1206006900', zoom: [1.0, 1.1], shift: [4, 0] },
    { stem: 'spt',   code: '1606000000', zoom: [1.2, 1.05] },
    { stem: 'eng',   code: '1407000000', zoom: [1.5, 1.1], shift: [0, 0] },
    { stem: 'brg',   code: '1407000600', zoom: [1.1, 0.95], shift: [10, 9] },
    { stem: 'iew',   code: '1505000000', zoom: [1.25, 1.15] },
    { stem: 'iewa',  code: '1510004700', zoom: [1.1, 1.1], shift: [7, 3] },
    { stem: 'hq',    code: '1100000000', staff: true },
    { stem: 'inf',   code: '1211000019' },
    { stem: 'mech',  code: '1211020000' },
    { stem: 'mp',    code: '1412000000', zoom: [1.25, 1.15] },
    { stem: 'nbc',   code: '1401006000', zoom: [1.05, 1.05], shift: [6, 2] },
    { stem: 'psy',   code: '1106000000', zoom: [1.6, 1.5], thin: 0.6 },
    { stem: 'rec',   code: '1213000000' },
    { stem: 'sf',    code: '1217000000', zoom: [1.3, 1.2] },
    { stem: 'uav',   code: '1219000000', zoom: [1.3, 1.2] },
];
export const CONVOY = { stem: 'trk', code: '1636000000', zoom: [1.9, 1.8] };

// The last character of a file name is the size list's index + 1: 1 squad, 2 platoon, 3 company, 4 battalion,
// 5 brigade, 6 division, 7 corps. A 0 is a symbol without a mark.
export const DIGITS = [1, 2, 3, 4, 5, 6, 7];
const MARKS = ['', 'o', 'ooo', 'I', 'II', 'X', 'XX', 'XXX'];

export const SIDES = [
    { letter: 'b', digit: '3', fill: 'rgb(128,224,255)' },
    { letter: 'r', digit: '6', fill: 'rgb(255,128,128)' },
];

// All in pixels of the picture: the box of the frame's centre line, its line and that of the icon, the row and
// height of the echelon marks with their bar and gap, and the white rim that parts the symbol from the map.
const LAYOUTS = {
    32: {
        b: { x: 2, y: 8, w: 28, h: 19 }, r: { x: 3.5, y: 6.6, w: 25, h: 24.6 },
        frame: 2, line: 1.5, rim: 0.8, mark: { y: 1, h: 5, bar: 2, gap: 2, dot: 4, cross: 1.5 },
    },
    48: {
        b: { x: 2.5, y: 11.5, w: 43, h: 29 }, r: { x: 5.5, y: 9.8, w: 37, h: 36.8 },
        frame: 2.4, line: 2, rim: 1, mark: { y: 1, h: 8, bar: 2, gap: 4, dot: 5, cross: 1.9 },
    },
    96: {
        b: { x: 5, y: 23, w: 86, h: 58 }, r: { x: 11, y: 20, w: 74, h: 73 },
        frame: 4, line: 3.6, rim: 2, mark: { y: 2, h: 15, bar: 4, gap: 6, dot: 11, cross: 3.6 },
    },
};

/** The marks as SVG, centred on column `middle`, `wide` pixels more on every side (the rim). */
function echelon(marks, middle, m, wide, colour) {
    const width = { o: m.dot, I: m.bar, X: m.h }[marks[0]] ?? 0;
    const gap = marks[0] === 'I' ? m.gap : Math.max(1, Math.round(m.gap / 2));
    let x = middle - (marks.length * width + (marks.length - 1) * gap) / 2;
    let out = '';
    for (const mark of marks) {
        if (mark === 'o') {
            out += `<circle cx="${x + width / 2}" cy="${m.y + m.h / 2}" r="${width / 2 + wide}" fill="${colour}"/>`;
        } else if (mark === 'I') {
            out += `<rect x="${x - wide}" y="${m.y - wide}" width="${width + 2 * wide}" height="${m.h + 2 * wide}"` +
                   ` fill="${colour}"/>`;
        } else {
            const inset = m.cross / 2.6;
            const [l, r, t, b] = [x + inset, x + width - inset, m.y + inset, m.y + m.h - inset];
            out += `<path d="M${l},${t}L${r},${b}M${l},${b}L${r},${t}" stroke="${colour}" fill="none"` +
                   ` stroke-width="${m.cross + 2 * wide}" stroke-linecap="round"/>`;
        }
        x += width + gap;
    }
    return out;
}

/** What milsymbol draws for the role, parted into frame and icon, in its own units (the octagon's centre at 100,100). */
function drawn(role, side) {
    const symbol = new ms.Symbol(`100${side.digit}100000${role.code}`, { size: 100 });
    if (!symbol.isValid()) throw new Error(`no symbol for ${role.stem}`);
    const parts = symbol.asSVG().match(/<(path|circle|text|g|\/g)\b.*?(?=<(?:path|circle|text|g|\/g|\/svg)\b)/gs);
    return { frame: parts[0].match(/ d="([^"]*)"/)[1], icon: parts.slice(1).join('') };
}

/** The SVG of one picture. `digit` 0..7; `size` 32, 48 or 96 pixels. */
export function unitSvg(role, sideIndex, digit, size) {
    const side = SIDES[sideIndex];
    const layout = LAYOUTS[size];
    const box = layout[side.letter];
    const { frame, icon } = drawn(role, side);
    // milsymbol's frames: the rectangle spans 25..175 by 50..150, the diamond 28..172 both ways.
    const [fx, fy, fw, fh] = side.letter === 'b' ? [25, 50, 150, 100] : [28, 28, 144, 144];
    const sx = box.w / fw, sy = box.h / fh;
    const zoom = role.zoom?.[sideIndex] ?? 1;
    const unit = (sx + sy) / 2;
    const shift = role.shift?.[sideIndex] ?? 0;
    const line = (layout.line * (role.thin ?? 1)) / (unit * zoom);
    let inside = icon
        .replaceAll(/stroke-width="3" stroke="black"/g, `stroke-width="${line.toFixed(3)}" stroke="black"`)
        .replaceAll('Arial', FONT_FAMILY)
        .replaceAll(/font-size="(\d+)"/g, (_, n) => `font-size="${(n < 30 ? 31 : n * 0.92).toFixed(1)}"`);
    if (role.letters) {
        inside += `<text x="100" y="95" text-anchor="middle" font-size="41" font-family="${FONT_FAMILY}"` +
                  ` font-weight="bold" dominant-baseline="middle">${role.letters}</text>`;
    }
    const at = `translate(${box.x} ${box.y}) scale(${sx} ${sy}) translate(${-fx} ${-fy})`;
    const middle = box.x + box.w / 2;
    const marks = MARKS[digit];
    const staff = role.staff
        ? `M${Math.floor(box.x)},${side.letter === 'b' ? box.y + box.h : box.y + box.h / 2}V${size}` : '';
    const rim = layout.frame + 2 * layout.rim;
    return `<svg xmlns="http://www.w3.org/2000/svg" width="${size}" height="${size}" viewBox="0 0 ${size} ${size}">` +
        `<g opacity="0.85">${echelon(marks, middle, layout.mark, layout.rim, 'white')}` +
        (staff && `<path d="${staff}" stroke="white" stroke-width="${rim}"/>`) +
        `<g transform="${at}"><path d="${frame}" fill="white" stroke="white" stroke-width="${rim / unit}"` +
        ` stroke-linejoin="round"/></g></g>` +
        `<g transform="${at}"><path d="${frame}" fill="${side.fill}"/>` +
        `<clipPath id="f"><path d="${frame}"/></clipPath><g clip-path="url(#f)">` +
        `<g transform="translate(100 ${100 + shift}) scale(${zoom}) translate(-100 -100)">${inside}</g></g>` +
        `<path d="${frame}" fill="none" stroke="black" stroke-width="${layout.frame / unit}"/></g>` +
        (staff && `<path d="${staff}" stroke="black" stroke-width="${layout.frame}"/>`) +
        echelon(marks, middle, layout.mark, 0, 'black') + '</svg>';
}
