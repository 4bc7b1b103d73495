// Contact sheets: every picture of a folder beside its name, for looking at. Never shipped.
import { rasterise, encodePng, FONT_FAMILY } from './raster.mjs';

/** cells: [{name, images: [{size, png}]}]. Shows size `show` magnified `times` over on a map-like ground. */
export function sheet(cells, { show, times, columns, ground }) {
    const side = show * times, w = Math.max(side, 58) + 12, h = side + 18;
    const rows = Math.ceil(cells.length / columns);
    let out = '';
    cells.forEach(({ name, images }, i) => {
        const x = (i % columns) * w + 6, y = Math.floor(i / columns) * h + 4;
        const png = images.find((image) => image.size === show)?.png;
        if (png === undefined) return;
        out += `<image x="${x}" y="${y}" width="${side}" height="${side}" image-rendering="optimizeSpeed"` +
               ` href="data:image/png;base64,${png.toString('base64')}"/>` +
               `<text x="${x}" y="${y + side + 11}" font-size="9" font-family="${FONT_FAMILY}">${name}</text>`;
    });
    return encodePng(rasterise(
        `<svg xmlns="http://www.w3.org/2000/svg" width="${columns * w}" height="${rows * h}">` +
        `<rect width="100%" height="100%" fill="${ground}"/>${out}</svg>`));
}
