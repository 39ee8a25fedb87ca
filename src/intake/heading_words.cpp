// A heading is cut into words, and words that were written together into their parts ("vadernummer"). Each word tells
// an owner, a thing, or nothing by itself ("of", "the").

#include "intake/heading_words.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "text/folded_words.h"
#include "text/plain_letters.h"

namespace pedigreewatch {
namespace {

enum class WordKind {
  filler,
  animal,
  young,
  sire,
  dam,
  relative,
  identification,
  name,
  sex,
  birth,
  date,
  event,
  import,
  country,
  colour,
  coat,
  breeder,
  other
};

struct KnownWords {
  WordKind kind;
  std::string_view words;  ///< folded, with blanks between them
};

constexpr auto known_words = std::to_array<KnownWords>({
    {WordKind::filler,
     "of the van de het der des vom von du la le les l el il lo den dem del della di da in am op on at a e full "
     "volledig volledige complete official officiel officieel registered herd flock kudde stud book life leven levens "
     "leb lebens oor ohr ear national nationaal nationale nacional nazionale pedigree stamboom uniek unique brand pass "
     "auricolare auricular"},
    {WordKind::animal,
     "animal animals animale animales animaux dier dieren tier tiere dog cat cow sheep ewe horse pony hond kat koe rund "
     "schaap paard hund katze rind schaf pferd chien chat bovin ovin cheval perro vaca oveja caballo cane bovino ovino "
     "cavallo own eigen individual individu individuo ind indiv"},
    {WordKind::young,
     "young youngs offspring progeny lamb lambs pup pups puppy puppies kitten kittens piglet piglets calf calves foal foals "
     "kid kids kit kits chick chicks cria jong jongen nakomeling nakomelingen lam lammeren lammetje kalf kalveren veulen "
     "veulens big biggen kuiken kuikens puppys welp welpe welpen lamm lammer kalb kalber fohlen ferkel kitz kitze kuken jungtier "
     "jungtiere jungtieres junges nachkomme nachkommen wurfling chiot chiots chaton chatons agneau agneaux veau veaux "
     "poulain poulains porcelet chevreau petit petits jeune jeunes produit cachorro cachorros cordero corderos ternero potro "
     "lechon cabrito gatito cria crias hijo hijos cucciolo cuccioli agnello agnelli vitello puledro suinetto capretto gattino "
     "figlio figli"},
    {WordKind::sire, "sire sires father fathers dad vader vaders vater vaters pere peres padre padres"},
    {WordKind::dam, "dam dams mother mothers mum mom moeder moeders mutter muttern mere meres madre madres"},
    {WordKind::relative,
     "grand grands grandsire granddam grandfather grandmother grandpere grandmere grootvader grootmoeder groot "
     "grossvater grossmutter gross vatersvater vatersmutter muttersvater muttersmutter muttervater muttermutter "
     "vatervater vatermutter abuelo abuela nonno nonna paternal maternal paterno paterna materno materna paternel "
     "maternel paternelle maternelle foster pleeg amme nurse recipient draagmoeder receptora porteuse "
     "surrogate surrogata adoptive adopted adoptief adoptie stief step leih zieh zoog ammen rearing nursing"},
    {WordKind::identification,
     "id ids identification identificatie identifikation identifiant identificacion identificativo identificazione "
     "identity identnummer ident idnr idno no nr num numm number nummer numero n registration register reg "
     "registratie registrier registrierung registro registre registrazione enregistrement tag eartag oormerk ohrmarke "
     "ohrmarken marke stamboek stb sb zuchtbuch zb herdbook studbook lom ueln boucle matricule matricola matricula "
     "crotal crotale cib marca marchio codice codigo code chip microchip transponder ring tattoo tatoeage tatouage "
     "tatuaje tatuaggio tatowierung hb hbnr lof loi loe earmark passport paspoort merk arete diio rfid eid"},
    {WordKind::name, "name names naam namen nom noms nombre nombres nome nomi rufname roepnaam call roep ruf"},
    {WordKind::sex, "sex sexe sekse sexo sesso gender geslacht geschlecht geschl gesl"},
    {WordKind::birth,
     "birth born birthdate birthday dob geboorte geboren geb gebdat gebdatum geburt geburts naissance nacimiento nascita "
     "nac nato nata nati nacido nacida ne nee foaled whelped lambed calved kidded farrowed hatched kindled dropped worp "
     "werp geworpen gelamd afgelamd gekalfd afgekalfd geveulend uitgekomen wurf geworfen ablammung abkalbung abfohlung "
     "abferkelung schlupf geschlupft lammung kalbung agnelage velage poulinage chevrotage eclosion misebas parto"},
    {WordKind::date, "date datum dat data fecha fec dt day dag jour dia giorno year jaar jahr annee ano anno yr on le"},
    {WordKind::event,
     "death died dead overleden sterfte sterf gestorven dood gestorben abgang tod verendet mort morte morto morta deces "
     "sortie muerte muerto muerta baja uscita slaughter slacht schlachtung abattage left afvoer aanvoer entry entered "
     "inscription inscrit inschrijving ingeschreven eintrag eingetragen eintragung alta inscripcion iscrizione iscritto "
     "iscritta ingreso entrata sold sale verkocht verkauft vendu venta vendita bought mating mated dek dekdatum gedekt "
     "served service deckung gedeckt saillie monta insemination weighed gewogen gewicht changed modified updated "
     "gewijzigd geandert modifie export exported exportiert last first weaning weaned gespeend"},
    {WordKind::import,
     "import imports imported importiert geimporteerd importee importado importada importato importata"},
    {WordKind::country, "country land pays pais paese"},
    {WordKind::colour,
     "colour colours color kleur kleuren kleurslag farbe farb farbschlag couleur colore robe capa mantello"},
    {WordKind::coat, "coat hair fur vacht haar fell pelage pelo"},
    {WordKind::breeder, "breeder breeders fokker fokkers zuchter eleveur naisseur criador allevatore"},
    {WordKind::other,
     "weight peso poids height hoogte schofthoogte widerristhohe taille alzada altezza length lengte lange place plaats "
     "ort lieu lugar luogo type typ tipo kind soort owner keeper eigenaar houder besitzer halter proprietaire detenteur "
     "propietario titular proprietario detentore breed ras rasse race raza razza status "
     "state stand zustand statut etat estado stato notes note remarks opmerkingen bemerkung remarques observaciones "
     "inbreeding inteelt inzucht consanguinite coi score index generation generatie litter nest size toom twin rank "
     "region regio village city stad farm bedrijf betrieb elevage allevamento address telephone email mail"},
});

std::optional<WordKind> kind_of_word(std::string_view word) {
  for (const KnownWords& entry : known_words) {
    for (std::size_t at = entry.words.find(word); at != std::string_view::npos; at = entry.words.find(word, at + 1)) {
      const std::size_t end = at + word.size();
      if ((at == 0 || entry.words[at - 1] == ' ') && (end == entry.words.size() || entry.words[end] == ' ')) {
        return entry.kind;
      }
    }
  }
  return std::nullopt;
}

/// The kinds of the parts of a word that is written together; nothing when a part is not known.
std::optional<std::vector<WordKind>> kinds_of_parts(std::string_view word) {
  if (const std::optional<WordKind> whole = kind_of_word(word)) return std::vector{*whole};
  constexpr std::size_t shortest_part = 2;
  for (std::size_t length = word.size() - std::min(word.size(), shortest_part); length >= shortest_part; --length) {
    const std::optional<WordKind> first = kind_of_word(word.substr(0, length));
    if (!first) continue;
    std::optional<std::vector<WordKind>> rest = kinds_of_parts(word.substr(length));
    // "Noel" is no "no" with "el" behind it.
    if (!rest || word.size() <= 2 * shortest_part) continue;
    rest->insert(rest->begin(), *first);
    return rest;
  }
  return std::nullopt;
}

constexpr std::string_view curly_quote = "\xE2\x80\x99";

/// A lone letter beside a word that means an identification or a name: "V-LOM", "D. herd book no.".
std::optional<WordKind> owner_of_letter(std::string_view word) {
  if (word == "v" || word == "s" || word == "p") return WordKind::sire;
  if (word == "m" || word == "d") return WordKind::dam;
  return std::nullopt;
}

/// How often words of a kind stand in a heading.
using KindCounts = std::array<int, static_cast<std::size_t>(WordKind::other) + 1>;

HeadingOwner owner_told_by(const KindCounts& counts) {
  const auto count = [&](WordKind kind) { return counts[static_cast<std::size_t>(kind)]; };
  const int parents = count(WordKind::sire) + count(WordKind::dam);
  if (count(WordKind::relative) > 0 || parents > 1) return HeadingOwner::other_relative;
  if (parents == 0) return HeadingOwner::animal;
  return count(WordKind::sire) > 0 ? HeadingOwner::sire : HeadingOwner::dam;
}

HeadingThing thing_told_by(const KindCounts& counts) {
  const auto has = [&](WordKind kind) { return counts[static_cast<std::size_t>(kind)] > 0; };
  const auto has_any = [&](auto... kinds) { return (has(kinds) || ...); };
  if (has(WordKind::other)) return HeadingThing::other;
  if (has(WordKind::event)) return HeadingThing::other_date;
  const bool says_when = has_any(WordKind::birth, WordKind::date, WordKind::sex);
  const bool says_number_of = says_when || has(WordKind::identification);
  if (has(WordKind::import)) {
    const bool says_more =
        says_number_of || has_any(WordKind::name, WordKind::colour, WordKind::coat, WordKind::breeder);
    return says_more ? HeadingThing::other_date : HeadingThing::import;
  }
  if (has(WordKind::country)) return HeadingThing::other;
  // "Colour of the ear tag" is that of no animal.
  if (has(WordKind::colour)) {
    return says_number_of || has(WordKind::breeder) ? HeadingThing::other : HeadingThing::colour;
  }
  if (has(WordKind::breeder)) {
    return says_number_of || has(WordKind::coat) ? HeadingThing::other : HeadingThing::breeder;
  }
  if (has(WordKind::coat)) return HeadingThing::other;
  if (has(WordKind::birth)) return HeadingThing::birth;
  const bool has_id = has(WordKind::identification);
  if (has(WordKind::date)) return has_id ? HeadingThing::other_date : HeadingThing::date;
  if (has(WordKind::name)) return HeadingThing::name;
  if (has(WordKind::sex)) return HeadingThing::sex;
  return has_id ? HeadingThing::identification : HeadingThing::none;
}

/// Whether a word of a heading that says import leaves it as it is: "Imported from", "Import J/N".
bool is_beside_import(std::string_view word, std::span<const std::string> words) {
  constexpr auto small_words = std::to_array<std::string_view>({"from", "aus", "uit", "desde", "depuis"});
  constexpr auto affirmations =
      std::to_array<std::string_view>({"j", "y", "o", "ja", "yes", "oui", "si", "jn", "yn", "on"});
  constexpr auto denials = std::to_array<std::string_view>({"n", "nee", "nein", "no", "non"});
  if (is_among(word, small_words) || is_among(word, affirmations)) return true;
  return is_among(word, denials) && std::any_of(words.begin(), words.end(), [&](const std::string& other) {
           return is_among(other, affirmations);
         });
}

bool says_import(std::string_view word) {
  const auto kinds = kinds_of_parts(word);
  return kinds && std::find(kinds->begin(), kinds->end(), WordKind::import) != kinds->end();
}

/// The words of a heading that say whose column it is and what it holds. "Import\u00E9" is no "importe", a price.
std::vector<std::string> telling_words(std::string_view heading) {
  std::vector<std::string> words = words_of_heading(heading);
  const bool has_accent =
      heading.find("\xC3\xA9") != std::string_view::npos || heading.find("\xC3\x89") != std::string_view::npos;
  if (has_accent) std::replace(words.begin(), words.end(), std::string("importe"), std::string("importee"));
  if (std::none_of(words.begin(), words.end(), says_import)) return words;
  const std::vector<std::string> all = words;
  std::erase_if(words, [&](const std::string& word) { return is_beside_import(word, all); });
  return words;
}

}  // namespace

std::vector<std::string> words_of_heading(std::string_view heading) {
  std::string plain(heading);
  for (std::size_t at = plain.find(curly_quote); at != std::string::npos; at = plain.find(curly_quote)) {
    plain.replace(at, curly_quote.size(), "'");
  }
  heading = plain;
  std::vector<std::string> words(1);
  const auto is_small = [](char byte) { return byte >= 'a' && byte <= 'z'; };
  for (std::size_t i = 0; i < heading.size(); ++i) {
    const bool is_quote = heading[i] == '\'';
    if (is_quote && words.back().size() == 1) words.back().clear();
    if (is_quote && i + 2 <= heading.size() && (i + 2 == heading.size() || !is_letter_or_digit(heading[i + 2]))) ++i;
    const bool begins = i > 0 && is_small(heading[i - 1]) && heading[i] >= 'A' && heading[i] <= 'Z';
    if ((begins || !is_letter_or_digit(heading[i])) && !words.back().empty()) words.emplace_back();
    if (is_letter_or_digit(heading[i]) && !is_quote) words.back().push_back(heading[i]);
  }
  for (std::string& word : words) word = folded(word);
  std::erase_if(words, [](const std::string& word) { return word.empty(); });
  return words;
}

bool has_import_in_it(std::string_view heading) {
  const std::vector<std::string> words = words_of_heading(heading);
  return std::any_of(words.begin(), words.end(), [](const std::string& word) {
    const bool is_of_importance = word.find("importan") != std::string::npos;
    return word.find("import") != std::string::npos && !is_of_importance;
  });
}

bool is_plain_heading_word(std::string_view word) {
  const std::optional<WordKind> kind = kind_of_word(word);
  return kind == WordKind::filler || kind == WordKind::animal || kind == WordKind::date;
}

HeadingMeaning read_heading(std::string_view heading) {
  constexpr std::size_t longest = 60;
  HeadingMeaning meaning;
  if (heading.size() > longest) return meaning;
  const std::vector<std::string> words = telling_words(heading);
  KindCounts counts = {};
  meaning.is_understood = !words.empty();
  // "N.D." says nothing.
  const bool are_letters =
      std::all_of(words.begin(), words.end(), [](const std::string& word) { return word.size() == 1; });
  for (const std::string& word : words) {
    std::optional<std::vector<WordKind>> kinds;
    if (const std::optional<WordKind> owner = owner_of_letter(word); owner && !are_letters) kinds = {{*owner}};
    if (!kinds) kinds = kinds_of_parts(word);
    meaning.is_understood = meaning.is_understood && kinds.has_value();
    if (!kinds) continue;
    for (const WordKind kind : *kinds) {
      ++counts[static_cast<std::size_t>(kind)];
      meaning.names_young = meaning.names_young || kind == WordKind::young;
      meaning.has_known_word =
          meaning.has_known_word || (kind != WordKind::filler && kind != WordKind::animal && kind != WordKind::young);
    }
  }
  meaning.is_understood = meaning.is_understood && !meaning.names_young;
  meaning.owner = owner_told_by(counts);
  meaning.thing = thing_told_by(counts);
  return meaning;
}

std::string words_beside_young(std::string_view heading) {
  std::string rest;
  for (const std::string& word : words_of_heading(heading)) {
    if (kind_of_word(word) != WordKind::young) rest += (rest.empty() ? "" : " ") + word;
  }
  return rest;
}

FieldCode field_of_heading(const HeadingMeaning& meaning) {
  if (!meaning.is_understood || meaning.owner == HeadingOwner::other_relative) return unused_column;
  if (meaning.owner == HeadingOwner::animal) {
    switch (meaning.thing) {
      case HeadingThing::identification: return id_column;
      case HeadingThing::name: return name_column;
      case HeadingThing::sex: return sex_column;
      case HeadingThing::birth: return birthdate_column;
      case HeadingThing::colour: return colour_column;
      case HeadingThing::breeder: return breeder_column;
      case HeadingThing::import: return import_column;
      default: return unused_column;
    }
  }
  const bool is_sire = meaning.owner == HeadingOwner::sire;
  switch (meaning.thing) {
    case HeadingThing::none:
    case HeadingThing::identification: return is_sire ? sire_column : dam_column;
    case HeadingThing::name: return is_sire ? sire_name_column : dam_name_column;
    default: return unused_column;
  }
}

}  // namespace pedigreewatch
