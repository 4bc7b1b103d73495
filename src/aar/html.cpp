#include "aar/html.h"

#include "core/numbers.h"
#include "core/text.h"
#include "persist/safe_file.h"

#include <cstdint>

namespace sm {

namespace {

constexpr const char* STYLE =
    ":root{--blue:#1f5fa8;--red:#b3302b;--ink:#20262d;--line:#d5dbe1;--paper:#fbfbf9}"
    "body{font:16px/1.5 system-ui,'Segoe UI','DejaVu Sans',sans-serif;color:var(--ink);background:var(--paper);"
    "max-width:1080px;margin:2rem auto;padding:0 1.5rem}"
    "h1{font-size:1.6rem;font-weight:600}h2{font-size:1.2rem;margin-top:2.2rem}"
    ".verdict{font-size:1.35rem;font-weight:600}"
    "table{border-collapse:collapse;margin:1rem 0}caption{text-align:left;font-weight:600;padding:.3rem 0}"
    "th,td{padding:.25rem .7rem;border-bottom:1px solid var(--line);text-align:left;font-weight:400}"
    "tr:first-child th{font-weight:600}.num{text-align:right;font-variant-numeric:tabular-nums}"
    ".bar{width:14rem}.bar span{display:block;height:.8rem}.bar .blue,.possession td.blue{background:var(--blue)}"
    ".bar .red,.possession td.red{background:var(--red)}.possession td{color:#fff;text-align:center;min-width:1.2rem}"
    ".charts{display:flex;flex-wrap:wrap;gap:1rem}figure{margin:0;flex:1 1 30rem}figcaption{font-weight:600}"
    ".chart{width:100%;background:#fff;border:1px solid var(--line)}.chart .grid{stroke:var(--line)}"
    ".chart .axis{font-size:11px;fill:#5b6670}.chart .label{font-size:12px}"
    ".chart polyline{fill:none;stroke-width:2.5}.chart polyline.blue{stroke:var(--blue)}"
    ".chart polyline.red{stroke:var(--red)}.chart text.blue{fill:var(--blue)}.chart text.red{fill:var(--red)}"
    ".chart rect.blue{fill:var(--blue)}.chart rect.red{fill:var(--red)}.chart rect.even{fill:#8a949e}"
    ".map{width:100%;border:1px solid var(--line)}.map .ground{fill:#e9efe0}.map image{opacity:.75}"
    ".map use.blue{fill:#8cc4f2;stroke:#0b3a6e;stroke-width:1.5}.map use.red{fill:#f59a94;stroke:#7a1511;stroke-width:1.5}"
    ".map use.out{fill-opacity:.15}.objective{fill:none;stroke:#444;stroke-width:3}.objective.blue{stroke:var(--blue)}"
    ".objective.red{stroke:var(--red)}.turns input{width:60%;vertical-align:middle}"
    "details{margin:.4rem 0}summary{cursor:pointer}.messages td{font-size:.9rem;vertical-align:top}"
    "[hidden]{display:none}@media print{details{display:block}}";

constexpr std::size_t MOST_PICTURE_BYTES = 1200000;

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
    const std::uint32_t start = Number_At(bmp, 10, 4), width = Number_At(bmp, 18, 4), height = Number_At(bmp, 22, 4);
    if (Number_At(bmp, 28, 2) != 24 || Number_At(bmp, 30, 4) != 0 || width < 1 || width > 20000 || height < 1 || height > 20000)
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
               "content=\"width=device-width\"><title>",
               Html_Text(title), "</title><style>", STYLE, "</style></head><body>");
}

std::string Html_End() { return "</body></html>\n"; }

std::string Html_Text(std::string_view utf8)
{
    std::string s;
    for (const char c : utf8) {
        if (c == '&') s += "&amp;";
        else if (c == '<') s += "&lt;";
        else if (c == '>') s += "&gt;";
        else if (c == '"') s += "&quot;";
        else s.push_back(c);
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
