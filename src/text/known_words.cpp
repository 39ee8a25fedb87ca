// Lists by language, with blanks between the words; an ending has a hyphen in front.

#include "text/known_words.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace pedigreewatch {
namespace {

constexpr auto word_lists = std::to_array<std::string_view>({
    // Dutch and Frisian
    "zo\u00EB chlo\u00EB no\u00EB co\u00EBn dani\u00EBl dani\u00EBlle micha\u00EBl micha\u00EBla "
    "rapha\u00EBl gabri\u00EBl gabri\u00EBlle jo\u00EBl jo\u00EBlle isra\u00EBl "
    "ru\u00EFne ru\u00EFnes re\u00FCnie re\u00FCnies co\u00F6rdinatie zee\u00EBn idee\u00EBn ok\u00E9 "
    "fa\u00E7ade cr\u00E8me be\u00EFnvloed ge\u00EFmporteerd ge\u00EBxporteerd belgi\u00EB itali\u00EB "
    "indi\u00EB azi\u00EB australi\u00EB scandinavi\u00EB tsjechi\u00EB sloveni\u00EB "
    "kroati\u00EB roemeni\u00EB oekra\u00EFne frysl\u00E2n sk\u00FBlenboarch tsj\u00FBkemar "
    "b\u00FBter w\u00E2ldpyk h\u00FBn h\u00FBntsje s\u00FBker sw\u00E2rte r\u00FBnte lo\u00EFs ana\u00EFs "
    "tha\u00EFs ma\u00EFa ma\u00EFs ka\u00EFn mo\u00EFra na\u00EFef ego\u00EFst ambi\u00EBren "
    "twee\u00EBntwintig drie\u00EBndertig co\u00F6peratie -i\u00EBn -i\u00EBr -ee\u00EBn",
    // German
    "br\u00F6sel j\u00E4ger m\u00FCller k\u00E4the wei\u00DF b\u00E4r b\u00E4ren gr\u00FCn \u00FCbermut "
    "d\u00F6ring h\u00F6fer \u00E4sche gr\u00F6\u00DFe fu\u00DF sch\u00F6n sch\u00F6ne g\u00FCnther "
    "l\u00E4ufer r\u00E4uber k\u00F6ln g\u00F6rlitz bl\u00FCmchen sch\u00E4tzchen m\u00E4del m\u00E4dchen "
    "r\u00F6slein gr\u00FC\u00DFe stra\u00DFe b\u00FCrgermeister h\u00FCbsch h\u00FCbsche j\u00F6rg "
    "j\u00FCrgen s\u00E4nger z\u00FCrich m\u00FCsli k\u00F6nig k\u00F6nigin f\u00FCrst f\u00FCrstin "
    "m\u00FCnchen m\u00FChle m\u00FChlen b\u00E4cker sch\u00E4fer g\u00E4rtner f\u00F6rster kr\u00E4mer "
    "kr\u00FCger k\u00F6hler schr\u00F6der sch\u00E4ffer b\u00F6hm b\u00F6hmer b\u00FChl b\u00FChler "
    "b\u00FCchner v\u00F6lker v\u00F6gel h\u00E4user h\u00FCtte h\u00FCtten h\u00F6he h\u00F6hen "
    "t\u00E4nnchen b\u00E4umchen k\u00E4tzchen h\u00E4schen f\u00FCchschen w\u00F6lfchen m\u00F6we "
    "m\u00F6hre l\u00F6we l\u00F6win l\u00F6wen bl\u00FCte bl\u00FCten fr\u00FCh fr\u00FChling gl\u00FCck "
    "gl\u00FCcks gr\u00FCner gr\u00FCnen s\u00FC\u00DF s\u00FC\u00DFe gro\u00DF gro\u00DFe wei\u00DFe "
    "wei\u00DFer schw\u00E4bisch \u00F6sterreich th\u00FCringen w\u00FCrttemberg s\u00FCdtirol n\u00FCrnberg "
    "w\u00FCrzburg d\u00FCsseldorf t\u00FCbingen g\u00F6ttingen l\u00FCbeck z\u00FCchter z\u00FCchtung "
    "r\u00FCde h\u00FCndin w\u00E4chter k\u00E4mpfer tr\u00E4umer d\u00E4mon \u00E4nnchen k\u00E4fer "
    "b\u00E4rbel h\u00E4nsel g\u00F6tz s\u00F6nke w\u00F6rth st\u00F6lzle schl\u00F6\u00DFchen schlo\u00DF "
    "fl\u00F6ckchen gl\u00F6ckchen pr\u00E4chtig m\u00E4chtig schw\u00E4rmer f\u00FCr \u00FCber",
    // French
    "for\u00EAt for\u00EAts ch\u00E9rie ch\u00E9ri no\u00EBl no\u00EBlle fr\u00E9gate h\u00E9l\u00E8ne "
    "gar\u00E7on tr\u00E8fle l\u00E9on \u00E9lan \u00E9clair \u00E9toile \u00E9toiles \u00EAtre \u00EEle "
    "\u00EEles ch\u00E2teau ch\u00E2teaux b\u00E9lier cr\u00EApe fen\u00EAtre beaut\u00E9 f\u00E9e "
    "g\u00E2teau h\u00F4tel c\u00F4te ao\u00FBt go\u00FBter \u0153illet c\u0153ur s\u0153ur fran\u00E7ois "
    "fran\u00E7oise andr\u00E9a andr\u00E9 andr\u00E9e th\u00E9o th\u00E9odore z\u00E9phyr m\u00E9lusine "
    "br\u00FBl\u00E9e ros\u00E9 b\u00E9b\u00E9 po\u00E8me po\u00E8mes rivi\u00E8re vall\u00E9e vall\u00E9es "
    "pr\u00EAtre bruy\u00E8re bruy\u00E8res herm\u00E8s d\u00E9sir\u00E9e d\u00E9sir\u00E9 c\u00E9lestine "
    "aur\u00E9lie ma\u00EFt\u00E9 ren\u00E9 ren\u00E9e jos\u00E9 jos\u00E9e j\u00E9r\u00F4me g\u00E9rard "
    "\u00E9tienne \u00E9ric herv\u00E9 c\u00E9cile m\u00E9lanie val\u00E9rie st\u00E9phane st\u00E9phanie "
    "fr\u00E9d\u00E9ric fr\u00E9d\u00E9rique cl\u00E9mence cl\u00E9ment agn\u00E8s in\u00E8s "
    "th\u00E9r\u00E8se genevi\u00E8ve h\u00E9lios zo\u00E9 chlo\u00E9 l\u00E9a m\u00E9lodie fid\u00E8le "
    "lumi\u00E8re lumi\u00E8res sorci\u00E8re guerri\u00E8re premi\u00E8re derni\u00E8re f\u00EAte "
    "f\u00EAtes t\u00EAte b\u00EAte m\u00EAme r\u00EAve r\u00EAves r\u00EAveur \u00E2me \u00E2ne "
    "\u00E7\u00E0 \u00E9t\u00E9 \u00E9ternel \u00E9ternelle \u00E9g\u00E9rie \u00E9l\u00E9gance "
    "\u00E9l\u00E9gant \u00E9b\u00E8ne \u00E9meraude \u00E9pine \u00E9pines \u00E9tang \u00E9talon "
    "\u00E9vasion \u00E9cume \u00E9glise pr\u00E9s pr\u00E9 pr\u00E8s apr\u00E8s m\u00FBr m\u00FBre s\u00FBr "
    "fl\u00FBte br\u00FBlot d\u00E9g\u00E2t b\u00E2ton p\u00E2querette p\u00E2turage supr\u00EAme "
    "boh\u00E8me ch\u00EAne ch\u00EAnes fr\u00EAne fr\u00EAnes berg\u00E8re croisi\u00E8re clairi\u00E8re "
    "foug\u00E8re poussi\u00E8re mani\u00E8re barri\u00E8re col\u00E8re m\u00E8re p\u00E8re fr\u00E8re "
    "l\u00E9gende myst\u00E8re op\u00E9ra libert\u00E9 majest\u00E9 v\u00E9rit\u00E9 volont\u00E9 sant\u00E9 "
    "fiert\u00E9 cit\u00E9 f\u00E9licit\u00E9 nouveaut\u00E9 n\u00E9v\u00E9 r\u00E9glisse r\u00E9s\u00E9da "
    "s\u00E9r\u00E9nade v\u00E9nus z\u00E9nith -i\u00E8re -i\u00E8res -\u00E9ment -est\u00E9",
    // Spanish
    "le\u00F3n ni\u00F1o ni\u00F1a ni\u00F1os mu\u00F1eca mu\u00F1eco mar\u00EDa ca\u00F1a raz\u00F3n "
    "\u00E1guila pe\u00F1a pe\u00F1as \u00E1ngel \u00E1ngela \u00E1ngeles \u00F1ato campe\u00F3n "
    "coraz\u00F3n andr\u00E9s \u00ED\u00F1igo \u00F3scar jes\u00FAs rub\u00E9n tom\u00E1s luc\u00EDa "
    "sof\u00EDa monta\u00F1a monta\u00F1as due\u00F1a due\u00F1o g\u00FCero \u00FAltimo peque\u00F1o "
    "peque\u00F1a bego\u00F1a espa\u00F1a espa\u00F1ol espa\u00F1ola se\u00F1or se\u00F1ora do\u00F1a "
    "a\u00F1o a\u00F1os oto\u00F1o sue\u00F1o sue\u00F1os le\u00F1a ca\u00F1\u00F3n ca\u00F1ada vi\u00F1edo "
    "ara\u00F1a casta\u00F1o casta\u00F1a extreme\u00F1a malague\u00F1o rinc\u00F3n rat\u00F3n jam\u00F3n "
    "balc\u00F3n halc\u00F3n drag\u00F3n canci\u00F3n pasi\u00F3n ilusi\u00F3n estaci\u00F3n bendici\u00F3n "
    "tradici\u00F3n gitan\u00F3n jard\u00EDn mart\u00EDn joaqu\u00EDn agust\u00EDn ferm\u00EDn valent\u00EDn "
    "delf\u00EDn garc\u00EDa gonz\u00E1lez rodr\u00EDguez fern\u00E1ndez l\u00F3pez mart\u00EDnez "
    "s\u00E1nchez p\u00E9rez g\u00F3mez jim\u00E9nez d\u00EDaz hern\u00E1ndez \u00E1lvarez mu\u00F1oz "
    "ib\u00E1\u00F1ez n\u00FA\u00F1ez m\u00E9ndez ram\u00EDrez v\u00E1zquez guti\u00E9rrez c\u00F3rdoba "
    "c\u00E1diz m\u00E1laga almer\u00EDa ja\u00E9n r\u00EDo r\u00EDos d\u00EDa d\u00EDas sand\u00EDa "
    "alegr\u00EDa valent\u00EDa fantas\u00EDa melod\u00EDa m\u00E1s as\u00ED tambi\u00E9n \u00E1rbol "
    "rel\u00E1mpago tr\u00E9bol pr\u00EDncipe m\u00E1gico oc\u00E9ano p\u00E1jaro volc\u00E1n capit\u00E1n "
    "sult\u00E1n gal\u00E1n alacr\u00E1n -ci\u00F3n -\u00F1ita -\u00F1ito",
    // Italian
    "nicol\u00F2 citt\u00E0 cos\u00EC virt\u00F9 perch\u00E9 bont\u00E0 gi\u00F2 caff\u00E8 luned\u00EC "
    "felicit\u00E0 pap\u00E0 per\u00F2 giovent\u00F9 libert\u00E0 bell\u00E0 maest\u00E0 nobilt\u00E0 "
    "serenit\u00E0 verit\u00E0 carit\u00E0 novit\u00E0 forl\u00EC cant\u00F9 -it\u00E0",
    // Portuguese and Catalan
    "jo\u00E3o concei\u00E7\u00E3o sim\u00F5es cora\u00E7\u00E3o a\u00E7ores m\u00E3e irm\u00E3 av\u00F4 "
    "portugu\u00EAs s\u00E3o le\u00E3o gavi\u00E3o falc\u00E3o sebasti\u00E3o furac\u00E3o trov\u00E3o "
    "ver\u00E3o can\u00E7\u00E3o paix\u00E3o esta\u00E7\u00E3o manh\u00E3 rom\u00E3 ma\u00E7\u00E3 "
    "gra\u00E7a pra\u00E7a mo\u00E7a esperan\u00E7a lembran\u00E7a b\u00EAn\u00E7\u00E3o \u00F3rf\u00E3o "
    "p\u00E3o c\u00E3o c\u00E3es lim\u00F5es cora\u00E7\u00F5es fa\u00E7anha a\u00E7ucena -\u00E7\u00E3o "
    "-\u00F5es",
    // Swedish and Finnish
    "\u00E5sa bj\u00F6rn k\u00E4re sm\u00E5land \u00E4ngel \u00F6land p\u00E5lle g\u00F6ran m\u00E4rta "
    "\u00E5ke h\u00E5kan m\u00E5rten sk\u00F6ld sj\u00F6 sj\u00F6n \u00E4lva \u00E4lvan \u00E4lg r\u00E4v "
    "g\u00E5rd v\u00E5r h\u00F6st sn\u00F6 p\u00E4rla stj\u00E4rna hj\u00E4lte k\u00E4rlek m\u00F6rk "
    "v\u00E4st s\u00F6der norrg\u00E5rd v\u00E4sterg\u00E5rd v\u00E4in\u00F6 p\u00E4ivi j\u00E4nis "
    "mets\u00E4 y\u00F6 k\u00E4hk\u00F6nen h\u00E4m\u00E4l\u00E4inen m\u00E4kinen",
    // Danish and Norwegian
    "s\u00F8ren \u00E5se \u00E6r\u00F8 kj\u00E6r bl\u00E5b\u00E6r \u00F8yvind h\u00E5kon r\u00F8d bj\u00F8rn "
    "j\u00F8rgen \u00F8ster s\u00F8nder n\u00F8rre m\u00F8ller \u00F8stergaard gr\u00F8n s\u00F8 sk\u00E5ne "
    "fl\u00F8de sm\u00F8r r\u00E5dhus \u00E6ble m\u00E5ne \u00E5ge p\u00E5l t\u00F8r",
    // Polish
    "wac\u0142aw \u017Caba krak\u00F3w \u0142ukasz \u015Bwit pi\u0119kna pi\u0119kny g\u0105ska ma\u0142y "
    "ma\u0142a b\u0105k \u0142o\u015B \u017Arebak \u015Bnie\u017Cka czes\u0142aw stanis\u0142aw "
    "boles\u0142aw w\u0142adys\u0142aw zdzis\u0142aw miros\u0142aw jaros\u0142aw \u0142\u00F3d\u017A "
    "gda\u0144sk pozna\u0144 wroc\u0142aw cz\u0119stochowa bia\u0142y bia\u0142a \u017C\u00F3\u0142ty "
    "\u017C\u00F3\u0142ta gwi\u0105zda ksi\u0119\u017Cyc ksi\u0105\u017C\u0119 ksi\u0119\u017Cniczka "
    "s\u0142o\u0144ce r\u00F3\u017Ca g\u00F3ra b\u0142ysk mi\u015B \u015Bnieg jask\u00F3\u0142ka "
    "w\u0105\u017C orze\u0142 \u0142ata \u017Cubr \u0142\u0105ka \u0107ma rze\u017Anik u\u0142an",
    // Czech and Slovak
    "je\u0161t\u011Brka kr\u00E1l \u0161\u00E1rka r\u016F\u017Eena v\u00EDtek d\u011Bda sle\u010Dna "
    "\u0159eka \u017Eofie k\u016F\u0148 \u010Dert p\u0159\u00EDb\u011Bh dvo\u0159\u00E1k nov\u00E1k "
    "sv\u011Br\u00E1k hv\u011Bzda hv\u011Bzdi\u010Dka b\u00EDl\u00FD b\u00EDl\u00E1 \u010Dern\u00FD "
    "\u010Dern\u00E1 kv\u011Bt kv\u011Bta kv\u011Btina m\u011Bs\u00EDc sn\u011B\u017Eenka \u0161\u00EDpek "
    "\u0161\u00EDpkov\u00E1 r\u016F\u017Ee \u0161t\u011Bst\u00ED \u010D\u00E1p je\u017Eek "
    "\u017E\u00E1ba v\u00E1\u017Eka ko\u010Dka d\u00EDvka mat\u011Bj ond\u0159ej ji\u0159\u00ED "
    "tom\u00E1\u0161 luk\u00E1\u0161 maty\u00E1\u0161 \u0161t\u011Bp\u00E1n va\u0161ek bo\u017Eena "
    "kate\u0159ina zden\u011Bk \u010Den\u011Bk \u017Ei\u017Eka h\u00E1jek v\u00FDr \u00FAdol\u00ED ml\u00FDn "
    "plze\u0148 t\u0159ebo\u0148 \u017Eiar \u0161koda",
    // Hungarian
    "gy\u00F6rgy l\u00E1szl\u00F3 cs\u00E1rd\u00E1s erd\u0151 t\u0171z v\u00F6r\u00F6s \u0151sz "
    "h\u0171s\u00E9g csillagf\u00E9ny b\u00FCszke gy\u00F6ngy gy\u00F6ngyi bety\u00E1r husz\u00E1r "
    "kir\u00E1ly kir\u00E1lyn\u0151 h\u0171s\u00E9ges er\u0151s sz\u00E9p sz\u00E9les \u00F6rd\u00F6g "
    "\u0151rz\u0151 kuty\u00E1s zolt\u00E1n s\u00E1ndor istv\u00E1n j\u00F3zsef k\u00E1roly j\u00E1nos "
    "mih\u00E1ly andr\u00E1s p\u00E9ter ilonk\u00E1k t\u00FCnd\u00E9r vir\u00E1g r\u00F3zsa "
    "h\u00F3feh\u00E9r k\u00E9kes m\u00E1tra b\u00FCkk f\u0171 f\u0171szer sz\u0151ke sz\u0151l\u0151 "
    "gy\u0171r\u0171 zs\u00F6mle",
});

struct KnownWords {
  std::unordered_set<std::string_view> whole;
  std::vector<std::string_view> endings;
};

const KnownWords& known_words() {
  static const KnownWords known = [] {
    KnownWords words;
    for (std::string_view list : word_lists) {
      while (!list.empty()) {
        const std::string_view entry = list.substr(0, list.find(' '));
        list.remove_prefix(std::min(entry.size() + 1, list.size()));
        if (entry.empty()) continue;
        if (entry.front() == '-') {
          words.endings.push_back(entry.substr(1));
        } else {
          words.whole.insert(entry);
        }
      }
    }
    return words;
  }();
  return known;
}

}  // namespace

bool is_known_accented_word(std::string_view word) {
  constexpr std::size_t fewest_bytes_before = 2;
  const KnownWords& known = known_words();
  return known.whole.contains(word) ||
         std::any_of(known.endings.begin(), known.endings.end(), [&](std::string_view ending) {
           return word.size() >= ending.size() + fewest_bytes_before && word.ends_with(ending);
         });
}

}  // namespace pedigreewatch
