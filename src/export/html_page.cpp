#include "export/html_page.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <ostream>
#include <string>
#include <unordered_map>
#include <vector>

#include "export/sheet_format.h"
#include "export/sheet_view.h"

namespace numarel {
namespace {

// Pixels at 96 dots to the inch; a twip is 1/1440 inch.
int TwipsToPixels(int twips) {
    return (twips * 96 + 720) / 1440;
}

// Output gathered into blocks of 64 KB before it goes to the stream.
class PageSink {
public:
    explicit PageSink(std::ostream& out) : out_(out) { buffer_.reserve(kBlock + 256); }
    ~PageSink() { Flush(); }
    PageSink(const PageSink&) = delete;
    PageSink& operator=(const PageSink&) = delete;

    PageSink& operator<<(std::string_view text) {
        buffer_.append(text);
        if (buffer_.size() >= kBlock) Flush();
        return *this;
    }
    PageSink& operator<<(char c) {
        buffer_ += c;
        if (buffer_.size() >= kBlock) Flush();
        return *this;
    }
    PageSink& operator<<(long value) {
        char digits[24];
        auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        return *this << std::string_view(digits, static_cast<std::size_t>(end - digits));
    }
    PageSink& operator<<(int value) { return *this << static_cast<long>(value); }
    void Flush() {
        out_.write(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
        buffer_.clear();
    }

private:
    static constexpr std::size_t kBlock = 1 << 16;
    std::ostream& out_;
    std::string buffer_;
};

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Text for the page's markup: UTF-8 with the characters of HTML escaped.
void HtmlText(PageSink& sink, std::string_view text) {
    const std::string utf8 = IsAscii(text) ? std::string(text) : SheetTextToUtf8(text);
    for (char c : utf8) {
        switch (c) {
            case '&':
                sink << "&amp;";
                break;
            case '<':
                sink << "&lt;";
                break;
            case '>':
                sink << "&gt;";
                break;
            case '"':
                sink << "&quot;";
                break;
            default:
                sink << c;
        }
    }
}

// A JSON string inside a script element: "<" is written as \u003c, so that no text can end the
// element.
void JsonString(PageSink& sink, std::string_view text) {
    const std::string utf8 = IsAscii(text) ? std::string(text) : SheetTextToUtf8(text);
    sink << '"';
    for (char c : utf8) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            sink << '\\' << c;
        } else if (c == '<') {
            sink << "\\u003c";
        } else if (u < 0x20) {
            static constexpr char kDigits[] = "0123456789abcdef";
            const char esc[6] = {'\\', 'u', '0', '0', kDigits[u >> 4], kDigits[u & 0xF]};
            sink << std::string_view(esc, 6);
        } else {
            sink << c;
        }
    }
    sink << '"';
}

// A cell's text in the texts block.
void BlockText(PageSink& sink, std::string_view text) {
    auto put = [&](char c) {
        switch (c) {
            case '\\':
                sink << "\\\\";
                break;
            case '\t':
                sink << "\\t";
                break;
            case '\n':
                sink << "\\n";
                break;
            case '\r':
                sink << "\\r";
                break;
            case '<':
                sink << "\\l";
                break;
            default:
                sink << c;
        }
    };
    if (IsAscii(text)) {
        if (text.find_first_of("\\\t\n\r<") == std::string_view::npos) {
            sink << text;
            return;
        }
        for (char c : text)
            put(c);
        return;
    }
    for (char c : SheetTextToUtf8(text))
        put(c);
}

// The distinct (back, fore) pairs of the shown cells, in order of first use; entry 0 is the
// defaults.
struct Palette {
    std::vector<std::pair<Rgb, Rgb>> entries{{kDefaultColour, kDefaultColour}};
    std::unordered_map<std::uint64_t, int> index{{0, 0}};
    int codeWidth = 1;

    static std::uint64_t Key(Rgb back, Rgb fore) {
        return (static_cast<std::uint64_t>(back) << 32) | fore;
    }
    void Add(Rgb back, Rgb fore) {
        const auto [it, added] = index.emplace(Key(back, fore), static_cast<int>(entries.size()));
        if (added) entries.emplace_back(back, fore);
    }
};

constexpr char kCodeLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
constexpr int kCodeBase = 52;

Palette CollectPalette(const ReportSheet& sheet, const std::vector<int>& cols) {
    Palette palette;
    std::uint64_t lastKey = 0;
    for (int r = 0; r < sheet.Rows(); ++r) {
        for (int c : cols) {
            const Rgb back = sheet.BackColor(r, c);
            const Rgb fore = sheet.ForeColor(r, c);
            const std::uint64_t key = Palette::Key(back, fore);
            if (key == lastKey) continue;
            lastKey = key;
            palette.Add(back, fore);
        }
    }
    for (std::size_t span = kCodeBase; span < palette.entries.size(); span *= kCodeBase)
        ++palette.codeWidth;
    return palette;
}

void PaletteCode(PageSink& sink, int entry, int width) {
    char code[8];
    for (int i = width - 1; i >= 0; --i) {
        code[i] = kCodeLetters[entry % kCodeBase];
        entry /= kCodeBase;
    }
    sink << std::string_view(code, static_cast<std::size_t>(width));
}

void WriteColourRuns(PageSink& sink, const ReportSheet& sheet, const std::vector<int>& cols,
                     const Palette& palette) {
    std::vector<int> entries(cols.size());
    std::uint64_t lastKey = 0;
    int lastEntry = 0;
    for (int r = 0; r < sheet.Rows(); ++r) {
        if (r > 0) sink << '\n';
        int end = 0;  // past the last cell that is not a default
        for (std::size_t i = 0; i < cols.size(); ++i) {
            const std::uint64_t key =
                Palette::Key(sheet.BackColor(r, cols[i]), sheet.ForeColor(r, cols[i]));
            if (key != lastKey) {
                lastKey = key;
                lastEntry = palette.index.at(key);
            }
            entries[i] = lastEntry;
            if (lastEntry != 0) end = static_cast<int>(i) + 1;
        }
        for (int i = 0; i < end;) {
            int run = 1;
            while (i + run < end && entries[static_cast<std::size_t>(i + run)] ==
                                        entries[static_cast<std::size_t>(i)])
                ++run;
            PaletteCode(sink, entries[static_cast<std::size_t>(i)], palette.codeWidth);
            if (run > 1) sink << run;
            i += run;
        }
    }
}

// Draws the rows and columns in view from the blocks above; kept small and dependency-free.
constexpr std::string_view kRenderer = R"JS((function(){'use strict';
function el(id){return document.getElementById(id);}
var info=JSON.parse(el('sheet-info').textContent);
var T=el('sheet-texts').textContent.split('\n'),R=el('sheet-colours').textContent.split('\n');
var W=info.widths,n=W.length,rows=info.rows,sw=info.codeWidth,pal=info.palette;
var grid=el('grid'),head=el('head'),body=el('body');
if(!n||!rows)return;
var X=new Float64Array(n+1);for(var i=0;i<n;i++)X[i+1]=X[i]+W[i];
var hs=new Float64Array(rows).fill(info.rowHeight);
info.heights.forEach(function(p){if(p[0]<rows)hs[p[0]]=p[1];});
var Y=new Float64Array(rows+1);for(var r=0;r<rows;r++)Y[r+1]=Y[r]+hs[r];
var css='';
pal.forEach(function(p,i){var s=(p[0]?'background:'+p[0]+';':'')+(p[1]?'color:'+p[1]+';':'');if(s)css+='.s'+i+'{'+s+'}';});
var st=document.createElement('style');st.textContent=css;document.head.appendChild(st);
head.style.height=hs[0]+'px';head.style.width=body.style.width=X[n]+'px';
body.style.height=(Y[rows]-Y[1])+'px';
function code(ch){var k=ch.charCodeAt(0);return k<97?k-65:k-71;}
function styles(r){var line=R[r]||'',out=new Int32Array(n),k=0,i=0;
while(i<line.length&&k<n){var s=0;for(var j=0;j<sw;j++)s=s*52+code(line[i++]);
var c=0;while(i<line.length){var d=line.charCodeAt(i)-48;if(d<0||d>9)break;c=c*10+d;i++;}
for(var e=Math.min(n,k+(c||1));k<e;k++)out[k]=s;}
return out;}
function unesc(s){return s.indexOf('\\')<0?s:s.replace(/\\(.)/g,function(m,c){return c=='t'?'\t':c=='n'?'\n':c=='r'?'\r':c=='l'?'<':c;});}
function html(s){return /[&<]/.test(s)?s.replace(/&/g,'&amp;').replace(/</g,'&lt;'):s;}
var sel=null,anchor=null,dragging=false,last='';
function inSel(r,c){return sel&&r>=sel.r0&&r<=sel.r1&&c>=sel.c0&&c<=sel.c1;}
function cells(r,c0,c1){var t=T[r].split('\t'),s=styles(r),h='';
function one(c){h+='<div class="c'+(r&&c?'':' f')+(s[c]?' s'+s[c]:'')+(inSel(r,c)?' x':'')+'" data-c="'+c+'" style="width:'+W[c]+'px">'+html(unesc(t[c]||''))+'</div>';}
one(0);if(c0>1)h+='<div class="g" style="width:'+(X[c0]-X[1])+'px"></div>';
for(var c=c0;c<=c1;c++)one(c);return h;}
function find(A,len,v){var lo=0,hi=len-1;while(lo<hi){var m=(lo+hi+1)>>1;if(A[m]<=v)lo=m;else hi=m-1;}return lo;}
function draw(){var top=grid.scrollTop;
var r0=Math.max(1,find(Y,rows,top+hs[0])-4),r1=Math.min(rows-1,find(Y,rows,top+grid.clientHeight)+4);
var left=grid.scrollLeft;
var c0=Math.max(1,find(X,n,left+W[0])-2),c1=Math.min(n-1,find(X,n,left+grid.clientWidth)+2);
var key=[r0,r1,c0,c1,sel?[sel.r0,sel.r1,sel.c0,sel.c1]:''].join();
if(key===last)return;last=key;
head.dataset.r=0;head.innerHTML=cells(0,c0,c1);
var h='<div style="height:'+(Y[r0]-Y[1])+'px"></div>';
for(var r=r0;r<=r1;r++)if(hs[r]>0)h+='<div class="r" data-r="'+r+'" style="height:'+hs[r]+'px;width:'+X[n]+'px">'+cells(r,c0,c1)+'</div>';
body.innerHTML=h;}
var pending=false;
function later(){if(pending)return;pending=true;requestAnimationFrame(function(){pending=false;draw();});}
grid.addEventListener('scroll',later);window.addEventListener('resize',later);
function jump(){grid.scrollTop=location.hash=='#top'?0:grid.scrollHeight;draw();}
jump();window.addEventListener('hashchange',jump);
function at(e){var c=e.target.closest&&e.target.closest('.c');if(!c)return null;return {r:+c.parentNode.dataset.r,c:+c.dataset.c};}
function choose(a,b){sel={r0:Math.min(a.r,b.r),r1:Math.max(a.r,b.r),c0:Math.min(a.c,b.c),c1:Math.max(a.c,b.c)};draw();}
grid.addEventListener('mousedown',function(e){var p=at(e);if(!p||e.button)return;if(!e.shiftKey||!anchor)anchor=p;choose(anchor,p);dragging=true;grid.focus();e.preventDefault();});
window.addEventListener('mousemove',function(e){if(dragging){var p=at(e);if(p)choose(anchor,p);}});
window.addEventListener('mouseup',function(){dragging=false;});
grid.addEventListener('keydown',function(e){if((e.ctrlKey||e.metaKey)&&e.key=='a'){anchor={r:0,c:0};choose(anchor,{r:rows-1,c:n-1});e.preventDefault();}});
document.addEventListener('copy',function(e){if(!sel)return;var out=[];
for(var r=sel.r0;r<=sel.r1;r++){var t=T[r].split('\t'),line=[];for(var c=sel.c0;c<=sel.c1;c++)line.push(unesc(t[c]||'').replace(/[\t\r\n]/g,' '));out.push(line.join('\t'));}
e.clipboardData.setData('text/plain',out.join('\n')+'\n');e.preventDefault();});
})();)JS";

}  // namespace

void WriteReportPage(const ReportSheet& sheet, std::string_view report, std::string_view lottery,
                     std::ostream& out) {
    PageSink sink(out);
    const std::vector<int> cols = ShownColumns(sheet);
    const Palette palette = CollectPalette(sheet, cols);
    const std::string gridLine = HexColour(ShownGridLine(sheet));
    const int font = sheet.FontDecipoints();
    const std::string dates = DrawingDateRange(sheet);

    sink << "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width,initial-scale=1\">\n"
            "<meta name=\"generator\" content=\"numarel\">\n<title>";
    HtmlText(sink, sheet.Title());
    sink << "</title>\n<style>\n"
            "html,body{margin:0;height:100%}\n"
            "body{display:flex;flex-direction:column;font-family:Arial,'Liberation Sans',"
            "sans-serif;background:#808080}\n"
            "header{background:#f0f0f0;padding:3px 8px;border-bottom:1px solid #a0a0a0}\n"
            "h1{font-size:11pt;margin:0}\nheader p{margin:1px 0 0;font-size:9pt}\n"
            "#grid{flex:1;min-height:0;overflow:auto;outline:none;font-size:"
         << font / 10 << '.' << font % 10
         << "pt}\n"
            ".r{display:flex}\n"
            ".c,.g{flex:none;box-sizing:border-box;height:100%}\n"
            ".c{display:flex;align-items:center;justify-content:safe center;overflow:hidden;"
            "white-space:pre;background:#fff;color:#000;cursor:cell;user-select:none;"
            "border-right:1px solid "
         << gridLine << ";border-bottom:1px solid " << gridLine
         << "}\n"
            ".f{background:#f0f0f0;border-color:#000}\n"
            ".r>.c:first-child{position:sticky;left:0;z-index:1;justify-content:flex-start;"
            "padding-left:2px}\n"
            "#head{position:sticky;top:0;z-index:2}\n#head>.c:first-child{z-index:3}\n"
            "#body{position:relative}\n"
            ".x{box-shadow:inset 0 0 0 99px rgba(0,90,200,.28)}\n"
            ".notes p{margin:2px 0;padding:2px 6px;font-size:9pt}\n"
            "</style></head><body>\n<header><h1>";
    HtmlText(sink, sheet.Title());
    sink << " <small>(";
    HtmlText(sink, report);
    sink << ")</small></h1>\n<p>";
    if (!lottery.empty()) {
        HtmlText(sink, lottery);
        sink << ": ";
    }
    sink << "<span id=\"draw-count\">" << sheet.DrawCount() << "</span> drawings";
    if (!dates.empty()) {
        sink << ", ";
        HtmlText(sink, dates);
    }
    sink << "</p></header>\n"
            "<div id=\"grid\" tabindex=\"0\"><div id=\"head\" class=\"r\"></div>"
            "<div id=\"body\"></div></div>\n";
    if (!sheet.Labels().empty()) {
        sink << "<div class=\"notes\">\n";
        for (const SheetLabel& label : sheet.Labels()) {
            sink << "<p style=\"background:"
                 << HexColour(label.back ? label.back : sheet_view::kFixedBack);
            if (label.fore) sink << ";color:" << HexColour(label.fore);
            sink << "\">";
            HtmlText(sink, label.text);
            sink << "</p>\n";
        }
        sink << "</div>\n";
    }
    sink << "<noscript><p style=\"background:#fff;padding:8px\">This page draws its sheet with "
            "JavaScript; the same sheet as CSV opens in any spreadsheet.</p></noscript>\n";

    // What the script needs to lay the sheet out.
    sink << "<script type=\"application/json\" id=\"sheet-info\">{\"report\":";
    JsonString(sink, report);
    sink << ",\"title\":";
    JsonString(sink, sheet.Title());
    sink << ",\"lottery\":";
    JsonString(sink, lottery);
    sink << ",\"dates\":";
    JsonString(sink, dates);
    sink << ",\"rows\":" << sheet.Rows() << ",\"drawCount\":" << sheet.DrawCount()
         << ",\"fixedRows\":1,\"fixedCols\":1,\"columns\":[";
    for (std::size_t i = 0; i < cols.size(); ++i)
        sink << (i ? "," : "") << cols[i];
    sink << "],\"widths\":[";
    for (std::size_t i = 0; i < cols.size(); ++i)
        sink << (i ? "," : "") << TwipsToPixels(ShownColWidth(sheet, cols[i]));
    sink << "],\"rowHeight\":" << TwipsToPixels(sheet_view::kDefaultRowHeightTwips)
         << ",\"heights\":[";
    bool first = true;
    for (auto [row, twips] : sheet.ExplicitRowHeights()) {
        sink << (first ? "[" : ",[") << row << ',' << TwipsToPixels(std::max(twips, 0)) << ']';
        first = false;
    }
    sink << "],\"codeWidth\":" << palette.codeWidth << ",\"palette\":[";
    for (std::size_t i = 0; i < palette.entries.size(); ++i) {
        auto [back, fore] = palette.entries[i];
        sink << (i ? ",[" : "[");
        JsonString(sink, back ? HexColour(back) : "");
        sink << ',';
        JsonString(sink, fore ? HexColour(fore) : "");
        sink << ']';
    }
    sink << "]}</script>\n";

    sink << "<script type=\"text/plain\" id=\"sheet-texts\">";
    ReportSheet::NumberDigits digits;
    for (int r = 0; r < sheet.Rows(); ++r) {
        if (r > 0) sink << '\n';
        for (std::size_t i = 0; i < cols.size(); ++i) {
            if (i > 0) sink << '\t';
            if (!sheet.IsEmpty(r, cols[i])) BlockText(sink, sheet.TextView(r, cols[i], digits));
        }
    }
    sink << "</script>\n<script type=\"text/plain\" id=\"sheet-colours\">";
    WriteColourRuns(sink, sheet, cols, palette);
    sink << "</script>\n<script>" << kRenderer << "</script>\n</body></html>\n";
}

}  // namespace numarel
