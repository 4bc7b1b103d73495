#include "aar/html.h"

#include "core/numbers.h"
#include "core/text.h"
#include "persist/safe_file.h"

#include <cstdint>

namespace sm {

namespace {

constexpr const char* STYLE = R"(
:root { --blue: #1f5fa8; --red: #b3302b; --even: #8a949e; --ink: #20262d; --quiet: #5b6670; --line: #d5dbe1;
        --paper: #fbfbf9; --pale-blue: #c3dbf1; --pale-red: #f3c9c5; --pale: #eceff1; --scale: 1 }
* { box-sizing: border-box; print-color-adjust: exact; -webkit-print-color-adjust: exact }
body { font: 16px/1.5 system-ui, 'Segoe UI', 'DejaVu Sans', sans-serif; color: var(--ink); background: var(--paper);
       max-width: 1160px; margin: 2rem auto; padding: 0 1.5rem }
h1 { font-size: 1.6rem; font-weight: 600; margin: 0 0 .2rem; overflow-wrap: break-word }
h2 { font-size: 1.2rem; font-weight: 600; margin: 2.4rem 0 .6rem }
p { margin: .4rem 0 }
.quiet { color: var(--quiet); font-size: .9rem }
.verdict { font-size: 1.35rem; font-weight: 600; border-left: .4rem solid var(--even); padding-left: .8rem; margin: 1rem 0 .4rem }
.verdict.blue { border-color: var(--blue) } .verdict.red { border-color: var(--red) }
.side-by-side { display: flex; flex-wrap: wrap; gap: 1.2rem 3rem; align-items: flex-start }
.wide { overflow-x: auto }
table { border-collapse: collapse; margin: .4rem 0 1rem }
caption { text-align: left; font-weight: 600; padding: .3rem 0; white-space: nowrap }
th, td { padding: .25rem .7rem; border-bottom: 1px solid var(--line); text-align: left; font-weight: 400 }
th { white-space: nowrap } thead th { font-weight: 600; vertical-align: bottom }
.num, .num th + th { text-align: right; font-variant-numeric: tabular-nums }
.num td { text-align: right; font-variant-numeric: tabular-nums }
td.text, th.text { text-align: left !important; white-space: nowrap }
.bar { width: 10rem; padding-left: 0 } .bar span { display: block; height: .8rem; min-width: 1px }
.bar .blue, .key .blue, .possession td.blue { background: var(--blue) }
.bar .red, .key .red, .possession td.red { background: var(--red) }
.possession td { color: #fff; text-align: center; padding: .25rem 0; min-width: 2.2rem }
.possession thead th + th { text-align: center; padding: .25rem 0 }
.share td { text-align: center; font-variant-numeric: tabular-nums; font-size: .8rem; white-space: nowrap; padding: .3rem .35rem;
            min-width: 3.4rem }
.share thead th + th { text-align: center }
.charts { display: grid; grid-template-columns: repeat(auto-fit, minmax(min(100%, 26rem), 1fr)); gap: 1.2rem }
figure { margin: 0 } figcaption { font-weight: 600; padding: .3rem 0 }
.chart { display: block; width: 100%; background: #fff; border: 1px solid var(--line) } .chart .grid { stroke: var(--line) }
.chart .axis { font-size: 12px; fill: var(--quiet) } .chart .name { font-size: 13px } .chart .count { font-size: 12px }
.chart polyline { fill: none; stroke-width: 2.5 } .chart polygon { stroke: none; fill-opacity: .13 }
.chart polyline.blue { stroke: var(--blue) } .chart polyline.red { stroke: var(--red) }
.chart .blue:not(polyline) { fill: var(--blue) } .chart .red:not(polyline) { fill: var(--red) }
.chart .even { fill: var(--even) } .bars { min-width: 44rem }
.key { display: flex; flex-wrap: wrap; gap: .2rem 1.4rem; color: var(--quiet); font-size: .9rem; margin: .5rem 0 }
.key i { display: inline-block; width: .9rem; height: .9rem; margin-right: .4rem; vertical-align: -.1rem }
.key svg { width: 1.4rem; height: 1.4rem; margin-right: .3rem; vertical-align: -.4rem }
.key .even { background: var(--even) }
.map { display: block; width: 100%; border: 1px solid var(--line) } .map .ground { fill: #e9efe0 } .map image { opacity: .8 }
symbol * { transform: scale(var(--scale)) }
use.blue, .sign.blue { fill: #8cc4f2; stroke: #0b3a6e; stroke-width: 1.5 }
use.red, .sign.red { fill: #f59a94; stroke: #7a1511; stroke-width: 1.5 }
use.out, .sign.out { fill-opacity: .15 }
.objective { fill: none; stroke: #444; stroke-width: calc(3px * var(--scale)); r: calc(16px * var(--scale)) }
.objective.blue { stroke: var(--blue) } .objective.red { stroke: var(--red) }
.number { font-size: calc(16px * var(--scale)); font-weight: 600; fill: var(--ink); stroke: #fff;
          stroke-width: calc(3px * var(--scale)); paint-order: stroke;
          transform: translate(calc(13px * var(--scale)), calc(-12px * var(--scale))) }
.turns { display: flex; flex-wrap: wrap; gap: .3rem 1rem; align-items: center } .turns .slide { flex: 1 1 18rem; display: flex; gap: .8rem }
.turns .slide input { flex: 1 } .turns output { min-width: 13rem; font-weight: 600 }
.find { display: flex; flex-wrap: wrap; gap: .5rem 1rem; margin: .6rem 0 } .find input { flex: 1 1 18rem }
.find input, .find select { font: inherit; padding: .25rem .5rem; border: 1px solid var(--line); background: #fff; color: inherit }
details { margin: .3rem 0 } summary { cursor: pointer; padding: .1rem 0 }
.messages { width: 100% } .messages td { font-size: .9rem; vertical-align: top; overflow-wrap: break-word }
.messages td:nth-child(-n + 2) { white-space: nowrap; width: 1% }
.messages .blue { color: var(--blue) } .messages .red { color: var(--red) }
[hidden] { display: none }
@media (max-width: 40rem) { body { padding: 0 .8rem; margin: 1rem auto } th, td { padding: .25rem .4rem } .bar { width: 5rem } }
@page { margin: 15mm }
@media print {
  body { background: none; max-width: none; margin: 0; padding: 0; font-size: 10pt }
  h2, .turns { break-after: avoid } figure, tr, .verdict, section { break-inside: avoid } .turns label, .find { display: none }
  thead { display: table-header-group } .wide { overflow: visible } .map { max-height: 240mm; width: auto; max-width: 100% }
  .share, .possession { width: 100% } .possession { table-layout: fixed } .possession th:first-child { width: 9rem } .share td { font-size: 6.5pt; padding: .2rem .1rem; min-width: 0 }
  .possession td { min-width: 0 } .bar { width: 7rem } .bars { min-width: 0 }
  .charts { grid-template-columns: 1fr 1fr }
})";

constexpr std::size_t MOST_PICTURE_BYTES = 3200000;   // a map of a thousand pixels square keeps its names readable

std::string Base64(std::string_view bytes)
{
    static constexpr char DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve(bytes.size() * 4 / 3 + 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k)
            group = group << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0u);
        for (std::size_t k = 0; k < 4; ++k)
            text.push_back(i + k <= bytes.size() ? DIGITS[group >> (18 - 6 * k) & 63] : '=');
    }
    return text;
}

std::uint32_t Number_At(std::string_view bytes, std::size_t at, int count)
{
    std::uint32_t value = 0;
    for (int k = count - 1; k >= 0; --k) value = value << 8 | static_cast<unsigned char>(bytes[at + k]);
    return value;
}

void Put(std::string& bytes, std::uint32_t value, int count)
{
    for (; count > 0; --count, value >>= 8) bytes.push_back(static_cast<char>(value));
}

/// A plain 24-bit bitmap reduced by a whole factor, each pixel the mean of its square; empty for any other bitmap.
std::string Reduced_Bitmap(std::string_view bmp)
{
    if (bmp.size() < 54 || bmp.substr(0, 2) != "BM") return {};
    const std::uint32_t start = Number_At(bmp, 10, 4), width = Number_At(bmp, 18, 4),
                        height = Number_At(bmp, 22, 4);
    if (Number_At(bmp, 28, 2) != 24 || Number_At(bmp, 30, 4) != 0 || width < 1 || width > 20000 || height < 1 ||
        height > 20000)
        return {};
    const std::size_t stride = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
    if (start > bmp.size() || stride * height > bmp.size() - start) return {};
    std::uint32_t factor = 1;
    while (static_cast<std::size_t>(width / factor) * (height / factor) * 3 > MOST_PICTURE_BYTES) ++factor;
    const std::uint32_t w = width / factor, h = height / factor;
    if (w == 0 || h == 0) return {};
    const std::uint32_t padding = (4 - w * 3 % 4) % 4, size = (w * 3 + padding) * h;
    std::string out = "BM";
    Put(out, 54 + size, 4);
    Put(out, 0, 4);
    Put(out, 54, 4);
    Put(out, 40, 4);
    Put(out, w, 4);
    Put(out, h, 4);
    Put(out, 1, 2);
    Put(out, 24, 2);
    Put(out, 0, 4);
    Put(out, size, 4);
    for (int k = 0; k < 4; ++k) Put(out, 0, 4);
    for (std::uint32_t y = 0; y < h; ++y) {
        for (std::uint32_t x = 0; x < w; ++x)
            for (std::uint32_t channel = 0; channel < 3; ++channel) {
                std::uint32_t sum = 0;
                for (std::uint32_t dy = 0; dy < factor; ++dy)
                    for (std::uint32_t dx = 0; dx < factor; ++dx)
                        sum += static_cast<unsigned char>(
                            bmp[start + stride * (y * factor + dy) + (x * factor + dx) * 3 + channel]);
                out.push_back(static_cast<char>(sum / (factor * factor)));
            }
        out.append(padding, '\0');
    }
    return out;
}

}   // namespace

std::string Html_Head(std::string_view title)
{
    return Cat("<!doctype html><html lang=\"en\"><head><meta charset=\"utf-8\"><meta name=\"viewport\" "
               "content=\"width=device-width, initial-scale=1\"><title>",
               Html_Text(title), "</title><style>", STYLE, "</style></head><body>");
}

std::string Html_End() { return "</body></html>\n"; }

std::string Html_Text(std::string_view utf8)
{
    std::string s;
    for (const char c : utf8) {
        if (c == '&')
            s += "&amp;";
        else if (c == '<')
            s += "&lt;";
        else if (c == '>')
            s += "&gt;";
        else if (c == '"')
            s += "&quot;";
        else
            s.push_back(c);
    }
    return s;
}

std::string Html_Number(double value)
{
    const int tenths = Round_Even(value * 10);
    const int whole = tenths / 10, rest = tenths < 0 ? -(tenths % 10) : tenths % 10;
    std::string s = Cat(tenths < 0 && whole == 0 ? "-" : "", To_Text(whole));
    return rest == 0 ? s : Cat(s, ".", To_Text(rest));
}

std::string Html_Picture(const std::string& path)
{
    if (path.empty()) return {};
    const FILE_READ file = Read_File_Whole(path, std::size_t{64} << 20);
    if (!file.ERROR.empty()) return {};
    if (file.CONTENT.substr(0, 2) == "\xFF\xD8") return Cat("data:image/jpeg;base64,", Base64(file.CONTENT));
    const std::string bitmap = Reduced_Bitmap(file.CONTENT);
    return bitmap.empty() ? std::string() : Cat("data:image/bmp;base64,", Base64(bitmap));
}

}   // namespace sm
