// A card is one sheet of A4 on its side, with the tables behind the pedigree on a second one.

#include "page/animal_style.h"

#include "page/page_style.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view style =
    R"css(.pw{--fa:#ffe39b}
@media screen and (prefers-color-scheme:dark){.pw{--fa:#5c4a00}}
.pw .fa-card,.pw.fa-page{page:pw-animal}
.pw .fa-of{display:none}
.pw .fa-card h2{border:0;margin:.6rem 0 .3rem;padding:0}
.pw .fa-card h3{margin:1.1rem 0 .2rem}
.pw .fa-facts{display:grid;grid-template-columns:max-content minmax(0,1fr);gap:.1rem 1rem;margin:.3rem 0 .6rem}
.pw .fa-facts div{display:contents}.pw .fa-facts dt{color:var(--n)}.pw .fa-facts dd{margin:0;overflow-wrap:anywhere}
.pw .fa-tree{display:block;width:100%;height:auto}
.pw .fa-tree text{font-size:12px;fill:var(--t)}.pw .fa-tree .fa-soft{fill:var(--n)}
.pw .fa-tree .fa-id{font-weight:600}.pw .fa-tree .fa-end{text-anchor:end}
.pw .fa-tree .fa-mark{font-weight:700;fill:var(--m)}
.pw .fa-tree .fa-box{fill:var(--b);stroke:var(--n);stroke-width:1}
.pw .fa-tree .fa-self{stroke-width:2.5}.pw .fa-tree .fa-twice{fill:var(--fa)}
.pw .fa-tree .fa-twice~.fa-soft{fill:var(--t)}
.pw .fa-tree .fa-none{fill:none;stroke-dasharray:4 3}
.pw .fa-tree .fa-line{stroke:var(--n);stroke-width:1}
.pw .fa-tree [data-animal],.pw .fa-press{cursor:pointer}
.pw .fa-tree [data-animal]:hover .fa-box{stroke:var(--1);stroke-width:2.5}
.pw .fa-tree [data-animal]:focus-visible{outline:3px solid var(--1);outline-offset:1px}
.pw .fa-press{font:inherit;color:var(--1);background:none;border:0;padding:.1rem 0;text-align:left;text-decoration:underline;min-height:24px}
.pw .fa-sample{background:var(--fa);padding:0 .3rem;color:var(--t)}
.pw .fa-young{max-width:34rem;overflow-wrap:anywhere}
.pw .fa-narrow{display:none}
@page pw-animal{size:A4 landscape;margin:9mm 9mm 11mm;@bottom-right{content:counter(page) " / " counter(pages);font:8pt sans-serif}}
@media screen and (max-width:56rem){.pw .fa-wide{display:none}.pw .fa-narrow{display:block;max-width:30rem}.pw .fa-facts{grid-template-columns:minmax(0,1fr)}.pw .fa-facts dd{margin:0 0 .3rem}}
@media print{.pw.fa-page header{display:none}.pw .fa-card .fa-of{display:block;float:right}.pw .fa-card{break-before:page}.pw .fa-card:first-of-type{break-before:auto}.pw .fa-card h2{font-size:12pt;margin:0}.pw .fa-card h3{font-size:10pt;margin:2mm 0 0}.pw .fa-facts{columns:3;display:block;font-size:8pt;margin:0;line-height:1.25}.pw .fa-facts div{display:block;break-inside:avoid}.pw .fa-facts dt,.pw .fa-facts dd{display:inline}.pw .fa-facts dt::after{content:": "}.pw .fa-tree{max-height:138mm}.pw .fa-more .scroll{break-inside:auto}.pw .fa-tree .fa-box,.pw .fa-sample{-webkit-print-color-adjust:exact;print-color-adjust:exact}.pw .fa-card p,.pw .fa-card table{font-size:8pt!important;max-width:none;margin:0}.pw .fa-more{break-before:page}.pw .fa-narrow{display:none}}
)css";

// Of the bytes above, as `openssl dgst -sha256 -binary | base64` gives them; a test compares.
constexpr std::string_view style_hash = "PB3YpjKHCYS+byd5Y4cE/CMpnYuh4YwpJU7FuCzZ2aU=";

}  // namespace

std::string_view animal_style() {
  return style;
}

std::string animal_page_policy() {
  return "default-src 'none'; style-src 'sha256-" + std::string(page_style_hash()) + "' 'sha256-" +
         std::string(style_hash) + "'; base-uri 'none'; form-action 'none'";
}

}  // namespace pedigreewatch
