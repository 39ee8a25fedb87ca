// Colours are variables, so that dark and light share all rules. Print is always light. The eight colours differ in
// lightness too, have a contrast of three to one at least with the ground, and each comes with a dash or a filling.

#include "page/page_style.h"

#include "page/page.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view style =
    R"css(.pw{--b:#fff;--t:#1a1a1a;--n:#595959;--g:#dcdcdc;--m:#b00020;--1:#0b5cad;--2:#c04c00;--3:#399cba;--4:#684b56;--5:#532402;--6:#09054d;--7:#b1896d;--8:#16000c;--u1:#dbe9f6;--u2:#b3d0ec;--u3:#7fb2de;--u4:#4b8fcb;--u5:#1f69ad;--u6:#0b4a86;--u7:#06315c;--u8:#031b36;box-sizing:border-box;max-width:62rem;margin:0 auto;padding:1rem;color:var(--t);background:var(--b);font:1rem/1.5 system-ui,"Segoe UI",Roboto,"DejaVu Sans",sans-serif}
html{color-scheme:light dark}
@media screen and (prefers-color-scheme:dark){.pw{--b:#15181c;--t:#ececec;--n:#b0b0b0;--g:#3a3f45;--m:#ff8fa0;--1:#6db3f2;--2:#dbae6a;--3:#4b766e;--4:#c0bcc7;--5:#f0eb4f;--6:#e0ffcd;--7:#726700;--8:#5855fa;--u1:#1d3a57;--u2:#27527c;--u3:#3570a6;--u4:#4d8fcb;--u5:#73aadd;--u6:#9cc4ea;--u7:#c3dcf3;--u8:#e6f1fb}}
.pw h1{font-size:1.7rem;margin:.5rem 0}
.pw h2{font-size:1.35rem;margin:2.2rem 0 .6rem;padding-top:.6rem;border-top:2px solid var(--g)}
.pw h3{font-size:1.08rem;margin:0 0 .2rem}
.pw p{margin:.3rem 0 .6rem;max-width:48rem}
.pw a{color:var(--1)}
.pw nav ul,.pw .legend{list-style:none;margin:.3rem 0;padding:0;display:flex;flex-wrap:wrap;gap:.2rem 1.1rem}
.pw figure{margin:1.2rem 0 1.8rem}
.pw figure p,.pw .legend,.pw summary,.pw table,.pw output{font-size:.92rem}
.pw .plot,.pw .scroll{overflow-x:auto}
.pw .plot{direction:rtl}.pw .plot svg{direction:ltr;display:block;width:100%;min-width:34rem;height:auto}
.pw .panels{display:grid;grid-template-columns:repeat(auto-fit,minmax(16rem,1fr));gap:.6rem 1.2rem}.pw .panels svg:not(.s){display:block;width:100%;height:auto}.pw .panels p{margin:0}
.pw .fold>summary{font-weight:600;font-size:1.08rem;margin:.6rem 0}.pw .bars td.bar{width:12rem;padding-right:0}.pw .bar svg{display:block;width:100%;height:.8rem}.pw .bars td{white-space:nowrap}
.pw svg .w{stroke:var(--t);stroke-width:1.6}.pw svg .t{fill:var(--t)}
.pw .plot:focus-visible,.pw .scroll:focus-visible,.pw summary:focus-visible{outline:3px solid var(--1);outline-offset:2px}
.pw output{display:block;min-height:1.5em;font-variant-numeric:tabular-nums}
.pw .marks strong{color:var(--m)}
.pw summary{cursor:pointer;padding:.1rem 0;width:max-content;max-width:100%}
.pw table{border-collapse:collapse;margin:.5rem 0;font-variant-numeric:tabular-nums}
.pw caption{text-align:left;font-weight:600;padding:.2rem 0}
.pw th,.pw td{padding:.12rem .6rem;border-bottom:1px solid var(--g);text-align:right;vertical-align:top}
.pw th:first-child,.pw .w td,.pw .w th{text-align:left}
.pw tbody th{font-weight:400}
.pw .s{width:40px;height:14px;vertical-align:-2px}
.pw .f{position:absolute}
.pw svg text{font-size:12px;fill:var(--n)}
.pw svg .e{text-anchor:end}.pw .v{paint-order:stroke;stroke:var(--b);stroke-width:4px}.pw .p{text-anchor:middle}
.pw svg path{fill:none}
.pw .g{stroke:var(--g)}.pw .a{stroke:var(--n)}.pw .r{stroke:var(--m);stroke-dasharray:2 3}
.pw .l{stroke-width:2;stroke-linejoin:round}
.pw .o,.pw .q,.pw .i{stroke-linecap:round;stroke-width:5}
.pw .q{stroke-width:7}.pw .i{stroke:var(--b);stroke-width:3.5}
.pw .x{stroke:var(--t);stroke-dasharray:1 2}
.pw svg .m{fill:var(--m)}
.pw .l1{stroke:var(--1)}.pw .l2{stroke:var(--2)}.pw .l3{stroke:var(--3)}.pw .l4{stroke:var(--4)}.pw .l5{stroke:var(--5)}.pw .l6{stroke:var(--6)}.pw .l7{stroke:var(--7)}.pw .l8{stroke:var(--8)}
.pw .l.l2{stroke-dasharray:8 3}.pw .l.l3{stroke-dasharray:2 3}.pw .l.l4{stroke-dasharray:10 3 2 3}.pw .l.l5{stroke-dasharray:5 2}.pw .l.l6{stroke-dasharray:1 4}.pw .l.l7{stroke-dasharray:14 4}.pw .l.l8{stroke-dasharray:6 2 1 2 1 2}
.pw .c1{fill:var(--1)}.pw .c2{fill:var(--2)}.pw .c3{fill:var(--3)}.pw .c4{fill:var(--4)}.pw .c5{fill:var(--5)}.pw .c6{fill:var(--6)}.pw .c7{fill:var(--7)}.pw .c8{fill:var(--8)}
.pw .h{stroke:var(--b);stroke-width:1.3;stroke-linecap:round}
.pw svg .b{stroke:var(--b);stroke-width:.6}.pw svg .u1,.pw svg .u2{stroke:var(--n);stroke-width:.4}
.pw svg .u1{fill:var(--u1)}.pw svg .u2{fill:var(--u2)}.pw svg .u3{fill:var(--u3)}.pw svg .u4{fill:var(--u4)}.pw svg .u5{fill:var(--u5)}.pw svg .u6{fill:var(--u6)}.pw svg .u7{fill:var(--u7)}.pw svg .u8{fill:var(--u8)}
.pw svg [class*="b co"]{stroke:var(--n);stroke-width:.5}.pw svg .co1.b{fill:#fff}.pw svg .co2.b{fill:#f3e6c4}.pw svg .co3.b{fill:#e0b040}.pw svg .co4.b{fill:#a8341c}.pw svg .co5.b{fill:#6a4020}.pw svg .co6.b{fill:#9a9a9a}.pw svg .co7.b{fill:#6d86a4}.pw svg .co8.b{fill:#1c1c1c}
.pw svg .b1{fill:url(#pw-f1)}.pw svg .b2{fill:url(#pw-f2)}.pw svg .b3{fill:url(#pw-f3)}.pw svg .b4{fill:url(#pw-f4)}.pw svg .b5{fill:url(#pw-f5)}.pw svg .b6{fill:url(#pw-f6)}.pw svg .b7{fill:url(#pw-f7)}.pw svg .b8{fill:url(#pw-f8)}
.pw .stand *{box-sizing:border-box}.pw .stand{--y0:#9f1d20;--y1:#a86a00;--y2:#1f6b3a;--y3:#555;--v:#fff;--l:#ccd2d8}
.pw .band{display:grid;grid-template-columns:auto 1fr 15rem;gap:.4rem 1.2rem;align-items:center;border:3px solid var(--y3);border-radius:8px;padding:.7rem 1rem}
.pw .v0{border-color:var(--y0)}.pw .v1{border-color:var(--y1)}.pw .v2{border-color:var(--y2)}
.pw .sign{width:62px;height:62px}.pw svg .y0{fill:var(--y0)}.pw svg .y1{fill:var(--y1)}.pw svg .y2{fill:var(--y2)}.pw svg .y3{fill:none;stroke:var(--y3);stroke-width:9}.pw svg .yw{stroke:#fff;stroke-width:6}
.pw .verdict{font-size:1.8rem;font-weight:700;line-height:1.15;margin:0}
.pw .sure{border-left:1px solid var(--l);padding-left:1rem}.pw .sure p{margin:0}.pw .sure svg{display:block;width:100%;max-width:15rem;margin:.3rem 0}
.pw .on{fill:var(--n);stroke:var(--n)}.pw .off{fill:none;stroke:var(--n)}
.pw .t{font-weight:700}.pw svg .t{font-weight:700;fill:var(--t)}.pw svg .big{font-size:15px}.pw .gauge rect+.t{font-size:11px}
.pw .stand .s{width:auto;height:auto;font-size:.88rem;color:var(--n);line-height:1.38;max-width:none}
.pw .cards{display:grid;grid-template-columns:1fr 1fr;gap:1rem;margin-top:1rem}
.pw .card{border:1px solid var(--l);border-radius:8px;padding:.8rem 1rem;min-width:0}
.pw .gauge{display:block;width:100%;height:auto}.pw .ww,.pw .wn{display:block;width:100%;height:auto}.pw .wn{display:none}
.pw svg .z0{fill:#f3c9c6}.pw svg .z1{fill:#ffe2a3}.pw svg .z2{fill:#cfe8d6}.pw .gauge rect+text.t{fill:#1a1a1a}
.pw svg .k{fill:var(--t)}.pw svg .k1{fill:var(--t);stroke:var(--b);stroke-width:3}.pw svg .hole{fill:var(--b);stroke-width:2.5}.pw svg .k2{stroke:var(--n)}
.pw svg .n1{fill:var(--1);font-weight:700}.pw svg .n2{fill:var(--2);font-weight:700}
.pw .tiles{display:grid;grid-template-columns:1fr 1fr;gap:.6rem 1rem}.pw .tile{border-left:5px solid var(--l);padding-left:.6rem}.pw .tile.bad{border-left:5px double var(--m)}
.pw .tile p{margin:0}.pw .bad .t,.pw .over{color:var(--m)}.pw .tile .fig{font-size:1.2rem;font-weight:700;line-height:1.2}
.pw .do ol{margin:0;padding-left:1.4rem}.pw .do li{margin-bottom:.7rem}.pw .do li::marker{font-weight:700}.pw .do strong{display:block}
.pw .do table,.pw .limits{font-size:.9rem;margin:.2rem 0}.pw .do th{font-weight:600}.pw td.w{text-align:left}
.pw .limits{width:100%}.pw .limits tbody th{text-align:left}.pw .limits th[colspan]{font-weight:600;color:var(--n)}.pw .over,.pw .kept{white-space:nowrap;font-weight:600}
@media screen and (max-width:760px){.pw .band{grid-template-columns:auto 1fr;padding:.7rem}.pw .sign{width:46px;height:46px}.pw .verdict{font-size:1.5rem}.pw .band>div{grid-column:1/3}.pw .band>div:first-of-type{grid-column:2}.pw .sure{border-left:0;border-top:1px solid var(--l);padding:.5rem 0 0}.pw .cards{grid-template-columns:minmax(0,1fr)}.pw .do{order:-1}.pw .ww{display:none}.pw .wn{display:block}.pw .limits th,.pw .limits td{padding:.12rem .3rem}}
@page{size:A4;margin:11mm}
@media print{.pw{font-size:10pt;padding:0;max-width:none}.pw nav,.pw output,.pw details:not([open]){display:none}.pw figure,.pw tr,.pw .tile,.pw caption,.pw thead{break-inside:avoid}.pw section:not([aria-labelledby=pw-check]) table:not(:has(tr:nth-child(9))){break-inside:avoid}.pw tbody tr:nth-child(-n+2){break-after:avoid}.pw tbody tr:nth-last-child(-n+2){break-before:avoid}.pw section:not(:has(>:not(h2,details:not([open])))){display:none}.pw section>.scroll{break-inside:auto}.pw figure{margin:.5rem 0 .8rem}.pw .plot svg{max-width:155mm}.pw .panels{grid-template-columns:1fr 1fr}.pw .panels>div{break-inside:avoid}.pw h2,.pw h3,.pw caption,.pw thead{break-after:avoid}.pw p,.pw table,.pw .legend{font-size:9.5pt!important}.pw .plot,.pw .scroll{overflow:visible}.pw .plot svg{min-width:0}.pw h1{font-size:14pt;margin:0}.pw header+main>svg+nav+section>h2{font-size:12pt;margin:.2rem 0;padding:0;border:0}.pw .stand{break-after:page;-webkit-print-color-adjust:exact;print-color-adjust:exact}.pw .stand p,.pw .stand table,.pw .stand .s{font-size:7.6pt!important;line-height:1.25;margin:.1rem 0}.pw .stand .verdict{font-size:15pt!important}.pw .stand .fig{font-size:10pt!important}.pw .stand h3{font-size:9.5pt;margin:.3rem 0 .1rem}.pw .band{grid-template-columns:auto 1fr 11rem;padding:.3rem .6rem}.pw .sign{width:42px;height:42px}.pw .cards{gap:.5rem;margin-top:.5rem}.pw .card{padding:.4rem .6rem;break-inside:avoid}.pw .do li{margin-bottom:.2rem;font-size:7.6pt}.pw .stand th,.pw .stand td{padding:.05rem .3rem}}
)css";

constexpr std::string_view script =
    R"js(for(const f of document.querySelectorAll('figure[data-n]')){
const p=f.querySelector('.plot');if(!p)continue;
const s=p.querySelector('svg'),o=f.querySelector('output'),r=f.querySelectorAll('tbody tr'),h=f.querySelectorAll('thead th'),
n=+f.dataset.n,a=+f.dataset.a,w=+f.dataset.w,c=document.createElementNS(s.namespaceURI,'path');
let k=n;c.setAttribute('class','x');s.append(c);
const show=i=>{i=Math.max(0,Math.min(n-1,i));if(i===k)return;k=i;
o.textContent=[...r[k].children].map((e,j)=>(j?h[j].textContent+': ':'')+'\u2068'+e.textContent.trim()+'\u2069').join(' \u00b7 ');
c.setAttribute('d','M'+(a+w*(k+.5)/n).toFixed(1)+' 24V222')};
p.addEventListener('mousemove',e=>{const b=s.getBoundingClientRect();show(Math.floor(((e.clientX-b.left)/b.width*720-a)/w*n))});
p.addEventListener('keydown',e=>{const i={ArrowLeft:k-1,ArrowRight:k+1,Home:0,End:n-1}[e.key];
if(i!==undefined){e.preventDefault();show(i)}})}
)js";

// Of the bytes above, as `openssl dgst -sha256 -binary | base64` gives them; a test compares.
constexpr std::string_view style_hash = "v/krgkcj2k2YiD7jyBWNVIJX8T53QMBuqhwE5xbBQ1U=";
constexpr std::string_view script_hash = "KcbYCxTcr4NdpUOY+gVWj+W/3o1zAqd96Kj/Gvt6Ht4=";

}  // namespace

std::string_view page_style() {
  return style;
}

std::string_view page_script() {
  return script;
}

std::string_view page_style_hash() {
  return style_hash;
}

std::string content_security_policy() {
  return "default-src 'none'; style-src 'sha256-" + std::string(style_hash) + "'; script-src 'sha256-" +
         std::string(script_hash) + "'; base-uri 'none'; form-action 'none'";
}

}  // namespace pedigreewatch
