// Windows pictures by hand: an .ico holding PNG images, and a .bmp with an alpha channel.

/** An icon file. images: [{size, png}], each a square PNG of at most 256 pixels. */
export function packIco(images) {
    const head = Buffer.alloc(6 + 16 * images.length);
    head.writeUInt16LE(1, 2);
    head.writeUInt16LE(images.length, 4);
    let offset = head.length;
    images.forEach(({ size, png }, i) => {
        const at = 6 + 16 * i;
        head.writeUInt8(size & 255, at);          // 256 is written as 0
        head.writeUInt8(size & 255, at + 1);
        head.writeUInt16LE(1, at + 4);            // planes
        head.writeUInt16LE(32, at + 6);           // bits a pixel
        head.writeUInt32LE(png.length, at + 8);
        head.writeUInt32LE(offset, at + 12);
        offset += png.length;
    });
    return Buffer.concat([head, ...images.map((image) => image.png)]);
}

/** A 32-bit bitmap with a version 4 header, which is the oldest that names an alpha mask. */
export function packBmp(width, height, rgba) {
    const start = 14 + 108;
    const out = Buffer.alloc(start + width * height * 4);
    out.write('BM', 0, 'latin1');
    out.writeUInt32LE(out.length, 2);
    out.writeUInt32LE(start, 10);
    out.writeUInt32LE(108, 14);
    out.writeInt32LE(width, 18);
    out.writeInt32LE(height, 22);                 // positive: rows run from the bottom up
    out.writeUInt16LE(1, 26);
    out.writeUInt16LE(32, 28);
    out.writeUInt32LE(3, 30);                     // the masks below hold
    out.writeUInt32LE(width * height * 4, 34);
    out.writeInt32LE(2835, 38);
    out.writeInt32LE(2835, 42);
    out.writeUInt32LE(0x00ff0000, 54);
    out.writeUInt32LE(0x0000ff00, 58);
    out.writeUInt32LE(0x000000ff, 62);
    out.writeUInt32LE(0xff000000, 66);
    out.write('BGRs', 70, 'latin1');              // sRGB, as the format spells it
    for (let y = 0; y < height; y++) {
        for (let x = 0; x < width; x++) {
            const from = (y * width + x) * 4;
            const to = start + ((height - 1 - y) * width + x) * 4;
            out[to] = rgba[from + 2];
            out[to + 1] = rgba[from + 1];
            out[to + 2] = rgba[from];
            out[to + 3] = rgba[from + 3];
        }
    }
    return out;
}
