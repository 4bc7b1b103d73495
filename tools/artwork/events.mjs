// Event pictures: a tile whose shape and colour tell the side, and a pictogram on a grid of 32 by 32.
// Red is an eight-sided tile, Blue a square, Neutral a rounded one, so that colour is never the only clue.
import { FONT_FAMILY } from './raster.mjs';

const TILES = {
    red:     { fill: 'rgb(255,128,128)', shape: 'M9,1.5H23L30.5,9V23L23,30.5H9L1.5,23V9Z' },
    blue:    { fill: 'rgb(128,224,255)', shape: 'M1.5,1.5H30.5V30.5H1.5Z' },
    neutral: { fill: 'rgb(170,235,160)', shape: 'M10,1.5H22A8.5,8.5 0 0 1 30.5,10V22A8.5,8.5 0 0 1 22,30.5H10' +
                                                'A8.5,8.5 0 0 1 1.5,22V10A8.5,8.5 0 0 1 10,1.5Z' },
    plain:   { fill: 'rgb(240,240,235)', shape: 'M10,1.5H22A8.5,8.5 0 0 1 30.5,10V22A8.5,8.5 0 0 1 22,30.5H10' +
                                                'A8.5,8.5 0 0 1 1.5,22V10A8.5,8.5 0 0 1 10,1.5Z' },
};

const fill = (d, colour = 'black') => `<path d="${d}" fill="${colour}"/>`;
const line = (d, width = 2, colour = 'black') =>
    `<path d="${d}" fill="none" stroke="${colour}" stroke-width="${width}" stroke-linecap="round" stroke-linejoin="round"/>`;
const disc = (x, y, r, colour = 'black') => `<circle cx="${x}" cy="${y}" r="${r}" fill="${colour}"/>`;
const ring = (x, y, r, width = 2) =>
    `<circle cx="${x}" cy="${y}" r="${r}" fill="none" stroke="black" stroke-width="${width}"/>`;
const put = (x, y, scale, body, turn = 0) =>
    `<g transform="translate(${x} ${y}) scale(${scale}) rotate(${turn})">${body}</g>`;
const word = (x, y, size, text, colour = 'black') =>
    `<text x="${x}" y="${y}" font-size="${size}" font-weight="bold" text-anchor="middle"` +
    ` font-family="${FONT_FAMILY}" fill="${colour}">${text}</text>`;

// Parts that several pictures share, each around its own origin.
const person = disc(0, -7, 2.6) + fill('M-4,6V-0.5A3,3 0 0 1 -1,-3.5H1A3,3 0 0 1 4,-0.5V6Z');
const standing = disc(0, -8.5, 2.5) + fill('M-3,-5H3V2H2V10H0.4V3H-0.4V10H-2V2H-3Z');
const handsUp = disc(0, -6, 2.5) + fill('M-2.6,-2.6H2.6V3H2.2V10H0.4V4H-0.4V10H-2.2V3H-2.6Z') +
                line('M-2.2,-1.8L-5.5,-8M2.2,-1.8L5.5,-8', 1.8);
const walking = disc(0.5, -8.5, 2.4) + line('M0,-4.5V2L-3,9M0,2L3.2,9', 2.2) + line('M-0.3,-3.5L3.5,0.5', 1.7);
const crate = fill('M-5,-5H5V5H-5Z') + line('M-3.4,-1.8H3.4M-3.4,1.6H3.4', 1.1, 'white');
const round = fill('M-1.6,6V-2C-1.6,-5 0,-7 0,-7C0,-7 1.6,-5 1.6,-2V6Z') + line('M-1.6,3.8H1.6', 0.8, 'white');
const building = fill('M-9,10V-2H9V10Z');
const burst = fill('M0,-8L1.8,-3.2L6.2,-5.4L4.2,-1L8.5,1L4,2.4L5.5,7L1.2,4.4L-1.5,8.5L-2.4,3.8L-7,5L-4.4,1.2L-8.5,-1.5' +
                   'L-3.6,-2.2L-4.6,-6.8L-1.4,-3.8Z');
const mast = line('M0,9V-4', 1.6) + line('M-4.5,10L0,-4L4.5,10M-2.6,4H2.6', 1.5) + disc(0, -5.5, 1.7) +
             line('M-3.6,-2.2A4.8,4.8 0 0 1 -3.6,-8.8M3.6,-2.2A4.8,4.8 0 0 0 3.6,-8.8', 1.4) +
             line('M-6.2,0A8.4,8.4 0 0 1 -6.2,-11M6.2,0A8.4,8.4 0 0 0 6.2,-11', 1.4);
const bolt = fill('M2,-8L-4.5,1.2H-0.6L-2.4,8L4.5,-1.6H0.6Z');
const bag = fill('M-2.2,-6H2.2L1.4,-3.6C5,-1.8 6,1.6 6,3.8C6,6.4 4,7.5 0,7.5C-4,7.5 -6,6.4 -6,3.8C-6,1.6 -5,-1.8 -1.4,-3.6Z');
const speaker = fill('M-8,-3H-3L4,-8V8L-3,3H-8Z') + line('M7,-4.5A6,6 0 0 1 7,4.5', 1.8) +
                line('M10,-7.5A10,10 0 0 1 10,7.5', 1.8);
const cuffs = ring(-6.4, 3.4, 4.6, 2.4) + ring(6.4, 3.4, 4.6, 2.4) +
              put(-4.4, -2.6, 1, fill('M-2.8,-1.9H2.8V1.9H-2.8Z'), 25) + put(4.4, -2.6, 1, fill('M-2.8,-1.9H2.8V1.9H-2.8Z'), -25) +
              ['-3.2,-5.4', '0,-7.4', '3.2,-5.4'].map((at, i) =>
                  `<ellipse cx="0" cy="0" rx="2.1" ry="1.3" fill="none" stroke="black" stroke-width="1.1"` +
                  ` transform="translate(${at}) rotate(${[-38, 0, 38][i]})"/>`).join('');
const truck = fill('M-11,-5H3V4H-11Z') + fill('M4,-2.5H8.2L11,1V4H4Z') + disc(-7, 5, 2.6) + disc(-1, 5, 2.6) +
              disc(7, 5, 2.6) + disc(-7, 5, 1, 'white') + disc(-1, 5, 1, 'white') + disc(7, 5, 1, 'white');
const placard = line('M0,6V-4', 1.4) + fill('M-4.2,-11H4.2V-4H-4.2Z') + line('M-2.6,-8.6H2.6M-2.6,-6.4H2.6', 1, 'white');
const columns = fill('M-11,-3.5L0,-9.5L11,-3.5V-2H-11Z') + fill('M-9,-1H-6.4V7H-9ZM-4,-1H-1.4V7H-4ZM1.4,-1H4V7H1.4ZM6.4,-1H9V7H6.4Z') +
                fill('M-11,8H11V10.5H-11Z');
const cross = (s, colour) => fill(`M${-s / 3},${-s}H${s / 3}V${-s / 3}H${s}V${s / 3}H${s / 3}V${s}H${-s / 3}V${s / 3}H${-s}V${-s / 3}H${-s / 3}Z`, colour);
const plus = line('M-3.4,0H3.4M0,-3.4V3.4', 2.2);
const casualty = disc(-8.5, 1, 2.7) + fill('M-5,-1.6H3L10,2.2V4.4H1L-5,3.6Z') + line('M-1,-0.5L-4.2,-4', 1.8) +
                 line('M-11.5,6.8H11.5', 1.8);
const barrier = (w) => fill(`M${-w},-4H${w}V3H${-w}Z`) +
    [...Array(Math.floor(w / 3))].map((_, i) => fill(`M${-w + 1 + i * 6},3L${-w + 4 + i * 6},-4H${-w + 6.6 + i * 6}L${-w + 3.6 + i * 6},3Z`, 'white')).join('');
const demonstration = put(16, 22, 1, person) + put(8, 23.5, 0.9, person) + put(24, 23.5, 0.9, person) +
                      put(11.5, 13, 0.9, placard, -12) + put(21, 13, 0.9, placard, 12);
const arrest = put(16, 16, 1.15, cuffs);
const psyops = put(13, 16, 1.05, speaker);
const refugees = put(10.5, 17, 1.05, walking) + fill('M3.6,11.5H8.4V17.5H3.6Z') + put(21, 19, 0.82, walking) +
                 fill('M22.6,19.5H27V24H22.6Z');
const ammunition = put(16, 21.5, 1.05, fill('M-9,-3.5H9V5.5H-9Z') + line('M-9,0.2H9', 1, 'white')) +
                   put(10, 12, 0.95, round) + put(16, 12, 0.95, round) + put(22, 12, 0.95, round);
const supplies = put(10, 21.5, 0.98, crate) + put(22, 21.5, 0.98, crate) + put(16, 10.5, 0.98, crate);
const recruit = put(12, 18, 1.35, person);

// [file number, tile, pictogram]
export const EVENTS = [
    [1, 'red', fill('M16,4C18,9 24,12 24,19A8,8 0 0 1 8,19C8,15.5 10,13 11.4,11.2C11.8,13.4 12.8,14.6 14,15C13.4,11 14,7 16,4Z') +
               fill('M16,26.2A4.2,4.2 0 0 1 11.8,22C11.8,19.4 14.6,18 15.4,15.4C17.8,17 20.2,19.4 20.2,22A4.2,4.2 0 0 1 16,26.2Z', 'rgb(255,214,64)')],
    [2, 'red', line('M7,6C19,8 19,24 7,26', 2.4) +
               line('M16,16H27M23,12L27,16L23,20', 2.6) + line('M15.5,12H10.5M15.5,20H10.5M13,8.6H8M13,23.4H8M16,16H11', 1.8)],
    [3, 'red', ammunition],
    [4, 'red', put(21, 11, 0.95, burst) + line('M5,26L13,18', 4.2) + disc(8.5, 25, 3.4) + disc(8.5, 25, 1.2, 'white') + line('M4,28.4H15', 1.6)],
    [5, 'red', put(16, 17.5, 1.2, person) + ring(16, 15, 9.5, 1.8) + line('M16,3.5V9M16,21V27M4.5,15H10M22,15H27.5', 1.8)],
    [6, 'red', demonstration],
    [7, 'red', disc(14.5, 19, 8.2) + fill('M17.8,9.6L22.6,13.2L20.4,16L15.6,12.4Z') + line('M20.4,11.4C22,7.5 24,8.5 25.5,6', 1.7) +
               put(26, 5.8, 0.42, burst) + line('M10,17.5A5,5 0 0 1 13,14.6', 1.5, 'white')],
    [8, 'red', fill('M16,12.4C20.6,12.4 23,15.8 23,19.6C23,24 20,26.6 16,26.6C12,26.6 9,24 9,19.6C9,15.8 11.4,12.4 16,12.4Z') +
               fill('M13.6,7.6H18.4V11.6H13.6Z') + line('M18,8.4C22.4,8.4 24.4,11 24.8,15.6', 1.7) + line('M13.6,17V22M16,16.4V22.8M18.4,17V22M11.6,19.6H20.4', 0.9, 'white') +
               ring(10, 8.4, 2.2, 1.5) + line('M7.6,8.4H3', 1.3)],
    [9, 'red', put(16, 21, 1, fill('M-11.5,3V-1.5L-7,-2.5L-4,-7H4.5L8,-2.5L11.5,-1.5V3Z') + fill('M-2.8,-5.5H-0.4V-2.4H-5ZM1,-5.5H3.8L5.6,-2.4H1Z', 'white') +
               disc(-6.5, 3.4, 2.8) + disc(6.5, 3.4, 2.8)) + line('M11,8.5H14M17,8.5H20M23,8.5H26', 2) + line('M8,8.5L5.5,8.5', 2.6)],
    [10, 'neutral', fill('M16,4.5L26,8V15C26,21.5 21.5,26 16,28C10.5,26 6,21.5 6,15V8Z') +
               fill('M16,9L17.9,13.6L22.8,14L19,17.2L20.2,22L16,19.4L11.8,22L13,17.2L9.2,14L14.1,13.6Z', 'white')],
    [11, 'neutral', put(16, 17.5, 1.08, building) + fill('M10,14.5V8.5H22V14.5Z') + put(16, 18.5, 0.8, cross(7.5, 'white'))],
    [12, 'red', put(10, 18.5, 0.95, standing) + put(22, 18.5, 0.95, standing) + put(16, 20.5, 0.72, standing) +
               line('M11.5,15L14.5,17M20.5,15L17.5,17', 1.8)],
    [13, 'blue', fill('M3,16C8,8.5 24,8.5 29,16C24,23.5 8,23.5 3,16Z') + disc(16, 16, 6, 'white') + disc(16, 16, 3.4) + disc(17.3, 14.7, 1, 'white')],
    [14, 'neutral', refugees],
    [15, 'blue', psyops],
    [16, 'neutral', psyops],
    [17, 'red', put(16, 17.5, 1.05, mast)],
    [18, 'red', put(10.5, 15.5, 0.95, barrier(6.6)) + line('M6,19V26M15,19V26', 2) + line('M19,15.3H22M24.5,15.3H27.5', 2.2) + line('M26,19V26', 1.4)],
    [19, 'red', put(17, 14, 1.15, fill('M0,-9.5C2.6,-6.5 2.8,-3 2.8,0V6H-2.8V0C-2.8,-3 -2.6,-6.5 0,-9.5Z') + fill('M-2.8,2L-6,7.5H-2.8ZM2.8,2L6,7.5H2.8Z') +
               fill('M-2,7H2L0,13Z', 'rgb(255,214,64)') + disc(0, -3, 1.3, 'white'), 40)],
    [20, 'neutral', supplies],
    [21, 'red', put(16, 14.5, 1, barrier(12)) + line('M7,18V26.5M25,18V26.5M4.5,27H9.5M22.5,27H27.5', 2) + line('M7,10V6.5M25,10V6.5', 2) + disc(7, 6, 1.9) + disc(25, 6, 1.9)],
    [22, 'red', put(16, 15, 1.35, bag) + word(16, 22.6, 12, '$', 'white')],
    [23, 'neutral', fill('M4,13.5L16,5L28,13.5V27H4Z') + put(16, 18.5, 0.85, cross(8, 'white'))],
    [24, 'red', fill('M5,17H27L24,27H8Z') + line('M9.5,20.5H22.5M10.5,23.8H21.5', 1.2, 'white') + line('M7,17C7,5 25,5 25,17', 1.8) + disc(12.5, 14, 3) + disc(19.5, 14, 3) + disc(16, 11.6, 3)],
    [25, 'red', put(12, 17.5, 0.95, mast) + put(24, 17, 0.9, bolt)],
    [27, 'neutral', demonstration],
    [28, 'red', recruit + line('M23,8V15', 2.8) + disc(23, 19.5, 1.7)],
    [29, 'red', put(13, 18, 1, fill('M-5,-5H5V10H-5Z') + fill('M-4,-6.2A4,3.2 0 0 1 4,-6.2Z') + fill('M-1.6,-12H1.6V-9H-1.6Z') + line('M-2.4,0H2.4M-2.4,3.6H2.4', 1.2, 'white')) +
               disc(19.5, 7.5, 1.1) + disc(23, 5.8, 1.1) + disc(23, 9, 1.1) + disc(26.3, 7.4, 1.1) + disc(26, 11, 1.1)],
    [30, 'neutral', arrest],
    [31, 'red', psyops],
    [32, 'red', line('M10.5,23L19,8.5', 4.4) + line('M16,15L23,26', 2) + line('M5,26.5H15', 2.6) + put(22.8, 6.2, 0.5, burst)],
    [33, 'red', arrest],
    [34, 'neutral', ammunition],
    [35, 'red', put(16, 16, 1, casualty)],
    [36, 'blue', put(16, 16, 1, casualty)],
    [37, 'neutral', put(16, 16, 1, casualty)],
    [38, 'plain', fill('M8,4.5H19.5L24.5,9.5V27.5H8Z') + fill('M19,4.5V10H24.5Z', 'rgb(170,170,170)') + line('M11,12.5H21.5M11,16H21.5M11,19.5H21.5M11,23H17', 1.5, 'white')],
    [39, 'red', fill('M4.5,14.5L16,5L27.5,14.5V27H4.5Z') + line('M17,5.5L13.5,12L18.5,16L14,21.5L17,27', 2.2, 'rgb(255,128,128)') + fill('M20.5,18H24.5V23H20.5ZM7.5,18H11.5V23H7.5Z', 'white')],
    [41, 'neutral', put(12.2, 11.4, 0.78, truck) + put(19.4, 22, 0.78, truck)],
    [42, 'neutral', put(16, 18.6, 0.92, columns) + line('M16,10V3.6', 1.3) + fill('M16,3.4H22.5V7.4H16Z')],
    [43, 'red', supplies],
    [44, 'neutral', put(16, 15.6, 1.08, columns)],
    [45, 'red', ring(16, 16, 9.6, 2) + line('M16,3.2V28.8M3.2,16H28.8', 1.4) + disc(16, 16, 2.6)],
    [46, 'blue', put(14.6, 14, 1.05, fill('M-7.5,0A5.5,5 0 0 1 3,-1.6L11,-2.2V0.2L3.4,2.6A5.5,4.6 0 0 1 -7.5,0Z') + line('M-1.6,-5V-7.6M-11,-8H8', 1.6) +
               line('M11,-4.6V2', 1.6), 28) + line('M4,27H28', 2) + put(8.4, 23, 0.42, burst) + put(23.6, 23.6, 0.36, burst)],
    [47, 'red', recruit + put(23, 11.5, 1.15, plus)],
    [48, 'red', put(16, 17, 1.15, handsUp)],
    [49, 'red', refugees],
];

export function eventSvg([, tile, body], size) {
    const t = TILES[tile];
    return `<svg xmlns="http://www.w3.org/2000/svg" width="${size}" height="${size}" viewBox="0 0 32 32">` +
        `<path d="${t.shape}" fill="white" stroke="white" stroke-width="3" stroke-linejoin="round" opacity="0.85"/>` +
        `<path d="${t.shape}" fill="${t.fill}" stroke="black" stroke-width="1.6" stroke-linejoin="round"/>` +
        `<g transform="translate(16 16) scale(0.87) translate(-16 -16)">${body}</g></svg>`;
}
