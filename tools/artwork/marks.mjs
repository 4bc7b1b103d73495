// Map marks other than units and events: control measures, objectives, engineer works, contamination, prisoners,
// bursts and flyers. All on a grid of 32 by 32.
import { FONT_FAMILY } from './raster.mjs';
import { SIDES } from './units.mjs';

const HOSTILE_INK = 'rgb(190,20,20)', FRIEND_INK = 'rgb(0,80,170)', OBSTACLE_INK = 'rgb(0,120,40)';

const fill = (d, colour = 'black', more = '') => `<path d="${d}" fill="${colour}" ${more}/>`;
const line = (d, width = 2, colour = 'black', more = '') =>
    `<path d="${d}" fill="none" stroke="${colour}" stroke-width="${width}" stroke-linecap="round"` +
    ` stroke-linejoin="round" ${more}/>`;
const disc = (x, y, r, colour = 'black', more = '') => `<circle cx="${x}" cy="${y}" r="${r}" fill="${colour}" ${more}/>`;
const word = (y, size, text, colour = 'black') =>
    `<text x="16" y="${y}" font-size="${size}" font-weight="bold" text-anchor="middle" font-family="${FONT_FAMILY}"` +
    ` fill="${colour}">${text}</text>`;
/** A shape with a dark edge and a white rim outside it. */
const plate = (d, colour, edge = 'black', width = 2, dash = '') =>
    line(d, width + 2, 'white', 'opacity="0.85"') + fill(d, colour) + line(d, width, edge, dash && `stroke-dasharray="${dash}"`);
/** Lines with a white rim under all of them. */
const rimmed = (d, width, colour = 'black') => line(d, width + 2, 'white', 'opacity="0.85"') + line(d, width, colour);
const turned = (angle, body, scale = 1) =>
    `<g transform="translate(16 16) rotate(${angle}) scale(${scale}) translate(-16 -16)">${body}</g>`;
/** A plate with letters; at 16 pixels a thinner edge leaves them more room. */
const label = (shape, colour, text, ink = 'black') => (size) =>
    plate(shape, colour, ink, size < 32 ? 1.5 : 2) + (size < 32 ? word(21, 13.5, text, ink) : word(20.2, 11.5, text, ink));

const PILL = 'M10.8,7H21.2A9,9 0 0 1 21.2,25H10.8A9,9 0 0 1 10.8,7Z';
const HEXAGON = 'M7.5,7H24.5L30.4,16L24.5,25H7.5L1.6,16Z';
const BOX = 'M2,7H30V25H2Z';
const OVAL = 'M16,5.5C25,5.5 30.5,10.5 30.5,16C30.5,21.5 25,26.5 16,26.5C7,26.5 1.5,21.5 1.5,16C1.5,10.5 7,5.5 16,5.5Z';
const CIRCLE = 'M16,3A13,13 0 1 1 15.99,3Z';

// A bridge lies west to east: two kerbs that flare at the banks, the roadway white between them.
const KERBS = 'M2,7L6.5,11.5H25.5L30,7M2,25L6.5,20.5H25.5L30,25';
const bridge = fill('M6,11.5H26V20.5H6Z', 'white') + rimmed(KERBS, 2.6) + line('M7,16H25', 1.6, 'rgb(120,120,120)');
const BROKEN = 'M2,7L6.5,11.5H11M30,7L25.5,11.5H21M2,25L6.5,20.5H11M30,25L25.5,20.5H21';
const blown = fill('M6,11.5H11.5L9.5,14L12,17L10,20.5H6Z', 'white') + fill('M26,11.5H20.5L22.5,14L20,17L22,20.5H26Z', 'white') +
              rimmed(BROKEN, 2.6) + line('M11.5,11.5L20.5,20.5M20.5,11.5L11.5,20.5', 2.6, HOSTILE_INK);

const PRISONER = disc(16, 9.6, 3) + fill('M12.9,13.6H19.1V20.2H18.6V27H16.5V21.6H15.5V27H13.4V20.2H12.9Z') +
                 line('M13.4,14.6L9.4,7.4M18.6,14.6L22.6,7.4', 2.2);

const FIGHTER = 'M16,1.5L18,8L18.6,12.5L30,20.5V23.5L18.8,20.4L18.2,25.6L22,29V30.8L16,29.2L10,30.8V29L13.8,25.6' +
                'L13.2,20.4L2,23.5V20.5L13.4,12.5L14,8Z';
const STRIKE = 'M16,2L18.2,6.4V11.2L30.4,13.6V18.4L18.2,18.8L17.6,25.4L22.4,27.6V30.2H9.6V27.6L14.4,25.4L13.8,18.8L1.6,18.4' +
               'V13.6L13.8,11.2V6.4Z';
const BOMBER = 'M16,1.5L18.4,5V11L21,12V9.5H23.4V13.2L31,18V20.8L18.4,17.6L17.8,25.6L23.4,29V31L16,29.4L8.6,31V29L14.2,25.6' +
               'L13.6,17.6L1,20.8V18L8.6,13.2V9.5H11V12L13.6,11V5Z';
const flyer = (shape, side) => line(shape, 3, 'white', 'opacity="0.85"') + fill(shape, side.fill) + line(shape, 1.5);

// A cloud and a burst are made of lobes at fixed places; a generator of our own keeps every build the same.
function numbers(seed) {
    let state = seed;
    return () => {
        state = (Math.imul(state, 1103515245) + 12345) >>> 0;
        return ((state >>> 8) & 0xffff) / 0x10000;
    };
}

const blob = (seed, lobes, spread, radius) => {
    const next = numbers(seed);
    return [...Array(lobes)].map((_, i) => {
        const angle = (i * 2 * Math.PI) / lobes + next() * 0.5, out = spread * (0.75 + next() * 0.35);
        return [16 + out * Math.cos(angle), 16 + out * Math.sin(angle), radius * (0.8 + next() * 0.4)];
    });
};
const lobed = (list, grow, colour) => list.map(([x, y, r]) => disc(x.toFixed(2), y.toFixed(2), (r + grow).toFixed(2), colour)).join('');

const gas = (() => {
    const lobes = blob(7, 9, 9.6, 5);
    const hatch = [...Array(13)].map((_, i) => `M${-14 + i * 5},34L${20 + i * 5},0`).join('');
    return `<g opacity="0.62">${lobed(lobes, 0.7, 'rgb(110,90,0)')}${disc(16, 16, 11, 'rgb(110,90,0)')}` +
           `${lobed(lobes, -0.2, 'rgb(255,222,30)')}${disc(16, 16, 10.6, 'rgb(255,222,30)')}</g>` +
           `<clipPath id="c">${lobed(lobes, -0.4, 'black')}${disc(16, 16, 10.4)}</clipPath>` +
           `<g clip-path="url(#c)" opacity="0.5">${line(hatch, 0.8, 'rgb(90,70,0)')}</g>`;
})();
const smoke = (() => {
    const outer = blob(3, 10, 10, 4.8), inner = blob(11, 6, 5, 4.2);
    return `<g opacity="0.66">${lobed(outer, 0.6, 'rgb(90,96,104)')}${disc(16, 16, 11, 'rgb(90,96,104)')}` +
           `${lobed(outer, -0.3, 'rgb(196,200,206)')}${disc(16, 16, 10.6, 'rgb(196,200,206)')}` +
           `${lobed(inner, 0, 'rgb(222,225,230)')}</g>`;
})();

/** Frame 1..9 of a burst: the flash, the fire at its widest in frame 5 and 6, then smoke that thins away. */
function burst(frame) {
    const next = numbers(41);
    const star = (points, outer, inner) => {
        const corners = [...Array(points * 2)].map((_, i) => {
            const r = (i % 2 ? inner : outer * (0.78 + next() * 0.26)), a = (i * Math.PI) / points + 0.2;
            return `${(16 + r * Math.cos(a)).toFixed(2)},${(16 + r * Math.sin(a)).toFixed(2)}`;
        });
        return `M${corners.join('L')}Z`;
    };
    const [reach, fire, smokeOut, alpha] = [
        [7, 1, 0, 1], [10, 1, 0, 1], [12.5, 1, 0, 1], [14.5, 1, 0.5, 1], [15.5, 1, 0.65, 1], [15.5, 1, 0.8, 1],
        [13, 0.7, 1, 0.85], [9, 0.4, 1.08, 0.62], [0, 0, 1.15, 0.38],
    ][frame - 1];
    const smokeLobes = smokeOut > 0 ? blob(17, 8, 9 * smokeOut, 4.6) : [];
    let out = smokeLobes.length === 0 ? '' :
        `<g opacity="${(alpha * 0.8).toFixed(2)}">${lobed(smokeLobes, 0, 'rgb(70,66,62)')}${disc(16, 16, 9 * smokeOut, 'rgb(84,80,76)')}</g>`;
    if (fire > 0) {
        out += `<g opacity="${alpha}">${fill(star(11, reach, reach * 0.62), 'rgb(200,40,10)')}` +
               `${fill(star(10, reach * 0.8, reach * 0.5), 'rgb(255,140,0)')}` +
               `${fill(star(9, reach * 0.55 * fire, reach * 0.34 * fire), 'rgb(255,225,80)')}` +
               `${disc(16, 16, (reach * 0.24 * fire).toFixed(2), 'white')}</g>`;
    }
    return out;
}

const CROSS_HAIR = 'M16,2V30M2,16H30';

// [file name, drawing, sizes beside 32, 48 and 96]. Small ones are drawn for the marks that lie 16 pixels wide on
// the map, large ones for those that are stretched over an area.
export const MARKS = [
    ['NAI.ico', label(PILL, 'white', 'NAI'), [16]],
    ['TAI.ico', label(HEXAGON, 'rgb(255,206,64)', 'TAI'), [16]],
    ['coordpt.ico', plate(CIRCLE, 'white', 'black', 2.2) + line('M7,7L25,25M25,7L7,25', 2.2), [16]],
    ['CFZ.ico', label(BOX, 'rgb(225,240,255)', 'CFZ', FRIEND_INK), [16]],
    ['Obj.ico', plate(OVAL, 'rgb(255,236,150)', 'black', 2.2) + word(20.2, 11.5, 'OBJ')],
    ['KeyT.ico', plate(CIRCLE, 'rgb(226,206,255)', 'black', 2.2) + word(22.6, 18, 'K')],
    ['Mcorridor.ico', fill('M8,4H24V28H8Z', 'rgb(255,255,255)', 'opacity="0.55"') + rimmed('M6,4C9,12 9,20 6,28M26,4C23,12 23,20 26,28', 2.2) +
                      rimmed('M16,26V7M11.5,11.5L16,6L20.5,11.5', 2.4, OBSTACLE_INK)],
    ['brdg.ico', bridge, [16]],
    ['brdg1.ico', turned(90, bridge), [16]],
    ['brdg2.ico', turned(-45, bridge, 0.82), [16]],
    ['blbrdg.ico', blown, [16]],
    ['blbrdg1.ico', turned(90, blown), [16]],
    ['blbrdg2.ico', turned(-45, blown, 0.82), [16]],
    ['mine.ico', plate('M2,9.5H30V22.5H2Z', 'rgb(225,245,225)', OBSTACLE_INK, 2.2) + disc(8.2, 16, 3.1) + disc(16, 16, 3.1) + disc(23.8, 16, 3.1), [16]],
    ['fort.ico', rimmed('M8,8L3,3M24,8L29,3M8,24L3,29M24,24L29,29', 2.6) + plate('M8,8H24V24H8Z', 'rgb(238,222,190)', 'black', 2.6) +
                 fill('M12,12H20V20H12Z', 'rgb(140,110,70)'), [16]],
    ['breach.ico', rimmed('M4,5H12V10M28,5H20V10M4,27H12V22M28,27H20V22', 2.4, OBSTACLE_INK) + rimmed('M5,16H26M21,11L26.5,16L21,21', 2.6)],
    ['gas.ico', gas, [256]],
    ['smoke.ico', smoke, [256]],
    ['repw.ico', plate(CIRCLE, 'rgb(255,90,90)') + PRISONER],
    ['bepw.ico', plate(CIRCLE, 'rgb(0,255,255)') + PRISONER],
    ...[1, 2, 3, 4, 5, 6, 7, 8, 9].map((frame) => [`explode${frame}.ico`, burst(frame)]),
    ...SIDES.flatMap((side) => [
        [`${side.letter}strike.ico`, flyer(STRIKE, side)],
        [`${side.letter}bomber.ico`, flyer(BOMBER, side)],
        [`${side.letter}fighter.ico`, flyer(FIGHTER, side)],
    ]),
    ['sitrep.ico', plate('M4,4H28V22H18L12,29V22H4Z', 'rgb(255,255,255)') + line('M8.5,9.5H23.5M8.5,13.2H23.5M8.5,16.9H18', 1.9)],
    ['node.bmp', plate(CIRCLE, 'rgb(255,255,255)', HOSTILE_INK, 3) + line(CROSS_HAIR, 2.6, HOSTILE_INK)],
    ['SEAD.bmp', rimmed('M16,1.5V19M5,10H27', 2.4, HOSTILE_INK) + `<circle cx="16" cy="10" r="5" fill="none" stroke="${HOSTILE_INK}" stroke-width="2"/>` +
                 plate('M1.5,19.5H30.5V30.5H1.5Z', 'white', HOSTILE_INK, 1.4) + word(28.2, 8.8, 'SEAD', HOSTILE_INK)],
    ['CFFZ.bmp', plate('M1.4,6.5H30.6V25.5H1.4Z', 'rgb(255,228,222)', HOSTILE_INK, 1.8, '4 2.8') + word(19.6, 9.8, 'CFFZ', HOSTILE_INK)],
];

export function markSvg([, body], size) {
    return `<svg xmlns="http://www.w3.org/2000/svg" width="${size}" height="${size}" viewBox="0 0 32 32">` +
        `${typeof body === 'function' ? body(size) : body}</svg>`;
}
