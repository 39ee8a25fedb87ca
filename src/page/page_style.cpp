// Colours are variables, so that dark and light share all rules. Print is always light. The eight colours differ in
// lightness too, have a contrast of three to one at least with the ground, and each comes with a dash or a filling.

#include "page/page_style.h"

#include "page/page.h"

namespace pedigreewatch {
namespace {

constexpr std::string_view style =
    R"css(.pw{--b:#fff;--t:#1a1a1a;--n:#595959;--g:#dcdcdc;--m:#b00020;--1:#0b5cad;--2:#b3400f;--3:#00705a;--4:#8a3f9c;--5:#6b5900;--6:#3a3a3a;--7:#0a7391;--8:#a8326e;box-sizing:border-box;max-width:62rem;margin:0 auto;padding:1rem;color:var(--t);background:var(--b);font:1rem/1.5 system-ui,"Segoe UI",Roboto,"DejaVu Sans",sans-serif}
html{color-scheme:light dark}
@media screen and (prefers-color-scheme:dark){.pw{--b:#15181c;--t:#ececec;--n:#b0b0b0;--g:#3a3f45;--m:#ff8fa0;--1:#6db3f2;--2:#f28e5c;--3:#45c9a5;--4:#cf9be0;--5:#d8c04a;--6:#d0d0d0;--7:#6fd0e6;--8:#f28bb8}}
.pw h1{font-size:1.7rem;margin:.5rem 0}
.pw h2{font-size:1.35rem;margin:2.2rem 0 .6rem;padding-top:.6rem;border-top:2px solid var(--g)}
.pw h3{font-size:1.08rem;margin:0 0 .2rem}
.pw p{margin:.3rem 0 .6rem;max-width:48rem}
.pw a{color:var(--1)}
.pw nav ul,.pw .legend{list-style:none;margin:.3rem 0;padding:0;display:flex;flex-wrap:wrap;gap:.2rem 1.1rem}
.pw figure{margin:1.2rem 0 1.8rem}
.pw figure p,.pw .legend,.pw summary,.pw table,.pw output{font-size:.92rem}
.pw .plot,.pw .scroll{overflow-x:auto}
.pw .plot svg{display:block;width:100%;min-width:34rem;height:auto}
.pw .plot:focus-visible,.pw .scroll:focus-visible,.pw summary:focus-visible{outline:3px solid var(--1);outline-offset:2px}
.pw output{display:block;min-height:1.5em;font-variant-numeric:tabular-nums}
.pw .marks strong{color:var(--m)}
.pw summary{cursor:pointer;padding:.1rem 0;width:max-content}
.pw table{border-collapse:collapse;margin:.5rem 0;font-variant-numeric:tabular-nums}
.pw caption{text-align:left;font-weight:600;padding:.2rem 0}
.pw th,.pw td{padding:.12rem .6rem;border-bottom:1px solid var(--g);text-align:right;vertical-align:top}
.pw th:first-child,.pw .w td,.pw .w th{text-align:left}
.pw tbody th{font-weight:400}
.pw .s{width:40px;height:14px;vertical-align:-2px}
.pw .f{position:absolute}
.pw svg text{font-size:12px;fill:var(--n)}
.pw .e{text-anchor:end}.pw .v{paint-order:stroke;stroke:var(--b);stroke-width:4px}.pw .p{text-anchor:middle}
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
.pw svg .b{stroke:var(--b);stroke-width:.6}
.pw svg .b1{fill:url(#pw-f1)}.pw svg .b2{fill:url(#pw-f2)}.pw svg .b3{fill:url(#pw-f3)}.pw svg .b4{fill:url(#pw-f4)}.pw svg .b5{fill:url(#pw-f5)}.pw svg .b6{fill:url(#pw-f6)}.pw svg .b7{fill:url(#pw-f7)}.pw svg .b8{fill:url(#pw-f8)}
@page{size:A4;margin:14mm}
@media print{.pw{font-size:10pt;padding:0;max-width:none}.pw nav,.pw output,.pw details:not([open]){display:none}.pw figure,.pw .scroll,.pw tr{break-inside:avoid}.pw h2,.pw h3,.pw caption,.pw thead{break-after:avoid}.pw p,.pw table,.pw .legend{font-size:9.5pt!important}.pw .plot,.pw .scroll{overflow:visible}.pw .plot svg{min-width:0}}
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
constexpr std::string_view style_hash = "kIHjAe0CMkNQHDSCzTpFOfPvQbY3N1XAMJqmUUTM0is=";
constexpr std::string_view script_hash = "KcbYCxTcr4NdpUOY+gVWj+W/3o1zAqd96Kj/Gvt6Ht4=";

}  // namespace

std::string_view page_style() {
  return style;
}

std::string_view page_script() {
  return script;
}

std::string content_security_policy() {
  return "default-src 'none'; style-src 'sha256-" + std::string(style_hash) + "'; script-src 'sha256-" +
         std::string(script_hash) + "'; base-uri 'none'; form-action 'none'";
}

}  // namespace pedigreewatch
