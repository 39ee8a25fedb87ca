// Tables, one a kind of word, in the order of `Tongue`.

#include "support/foreign_words.h"

#include <vector>

namespace pedigreewatch::test {
namespace {

using Words = std::vector<std::string_view>;
using WordsByTongue = std::array<Words, tongue_count>;

const std::vector<WordsByTongue>& all_headings() {
  static const std::vector<WordsByTongue> table = {
      // id
      {{{"ID", "Reg. no", "Id no", "Registration number", "Animal ID"},
        {"ID", "Diernummer", "Registratienummer", "Stamboeknummer", "Id dier"},
        {"ID", "Tier", "Tiernummer", "Registriernummer", "Zuchtbuchnummer"},
        {"ID", "Identifiant", "Animal", "Num\u00E9ro", "No animal"},
        {"ID", "Identificaci\u00F3n", "N\u00FAmero", "Id animal", "Registro"},
        {"ID", "Identificativo", "Numero", "Id animale", "Numero di registro"}}},
      // odd_id
      {{{"Ear tag", "Tag", "Herd book no.", "Life number", "UELN"},
        {"Oormerk", "Stamboeknr.", "Levensnummer", "Stb.nr", "nummer"},
        {"ZB-Nr.", "Ohrmarkennummer", "Lebensnummer", "LOM", "Nr"},
        {"Matricule", "N\u00B0 national", "Boucle", "N\u00B0", "Num SIRE"},
        {"Crotal", "N\u00BA de crotal", "Matr\u00EDcula", "N\u00BA", "CIB"},
        {"Matricola", "Marca auricolare", "N. matricola", "Marchio", "Codice"}}},
      // name
      {{{"Name", "Registered Name", "Animal name", "Call name"},
        {"Naam", "Naam dier", "Roepnaam"},
        {"Name", "Tiername", "Rufname"},
        {"Nom", "Nom de l'animal"},
        {"Nombre", "Nombre del animal"},
        {"Nome", "Nome animale"}}},
      // sire
      {{{"Sire", "Father"}, {"Vader", "V"}, {"Vater"}, {"P\u00E8re", "Pere"}, {"Padre"}, {"Padre"}}},
      // dam
      {{{"Dam", "Mother"}, {"Moeder", "M"}, {"Mutter"}, {"M\u00E8re", "Mere"}, {"Madre"}, {"Madre"}}},
      // sire_id
      {{{"Sire ID", "Sire Reg. no", "Id of sire", "Father ID"},
        {"Id vader", "Registratienummer vader", "Vader ID"},
        {"Vater ID", "Id Vater", "Vater-ID"},
        {"Identifiant p\u00E8re", "Id p\u00E8re"},
        {"ID padre", "Identificaci\u00F3n del padre"},
        {"ID padre", "Identificativo padre"}}},
      // dam_id
      {{{"Dam ID", "Dam Reg. no", "Id of dam", "Mother ID"},
        {"Id moeder", "Registratienummer moeder", "Moeder ID"},
        {"Mutter ID", "Id Mutter", "Mutter-ID"},
        {"Identifiant m\u00E8re", "Id m\u00E8re"},
        {"ID madre", "Identificaci\u00F3n de la madre"},
        {"ID madre", "Identificativo madre"}}},
      // odd_sire_id
      {{{"Sire ear tag", "Sire's tag", "S. herd book no.", "Sire UELN"},
        {"Oormerk vader", "Stamboeknr. vader", "Vader stb.nr", "Levensnr. vader"},
        {"Lebensnummer Vater", "Vater ZB-Nr.", "V-LOM", "Ohrmarke Vater"},
        {"N\u00B0 p\u00E8re", "Matricule p\u00E8re", "Boucle du p\u00E8re", "P\u00E8re N\u00B0 national"},
        {"Crotal padre", "Matr\u00EDcula del padre", "N\u00BA padre", "CIB padre"},
        {"Matricola padre", "Marca del padre", "N. padre", "Codice padre"}}},
      // odd_dam_id
      {{{"Dam ear tag", "Dam's tag", "D. herd book no.", "Dam UELN"},
        {"Oormerk moeder", "Stamboeknr. moeder", "Moeder stb.nr", "Levensnr. moeder"},
        {"Lebensnummer Mutter", "Mutter ZB-Nr.", "M-LOM", "Ohrmarke Mutter"},
        {"N\u00B0 m\u00E8re", "Matricule m\u00E8re", "Boucle de la m\u00E8re", "M\u00E8re N\u00B0 national"},
        {"Crotal madre", "Matr\u00EDcula de la madre", "N\u00BA madre", "CIB madre"},
        {"Matricola madre", "Marca della madre", "N. madre", "Codice madre"}}},
      // sire_name
      {{{"Sire name", "Name of sire"},
        {"Naam vader", "Vader naam"},
        {"Name Vater", "Vatername"},
        {"Nom du p\u00E8re", "Nom p\u00E8re"},
        {"Nombre del padre", "Nombre padre"},
        {"Nome del padre", "Nome padre"}}},
      // dam_name
      {{{"Dam name", "Name of dam"},
        {"Naam moeder", "Moeder naam"},
        {"Name Mutter", "Muttername"},
        {"Nom de la m\u00E8re", "Nom m\u00E8re"},
        {"Nombre de la madre", "Nombre madre"},
        {"Nome della madre", "Nome madre"}}},
      // sex
      {{{"Sex", "Gender", "M/F"},
        {"Geslacht", "Sekse", "Gesl."},
        {"Geschlecht", "Geschl.", "Sex"},
        {"Sexe", "Sexe animal"},
        {"Sexo"},
        {"Sesso"}}},
      // birth
      {{{"Date of birth", "Born", "Birth date", "DOB"},
        {"Geboortedatum", "Geboren", "Geb.datum"},
        {"Geburtsdatum", "Geboren"},
        {"Date de naissance", "Naissance"},
        {"Fecha de nacimiento", "Fecha nacimiento", "Nacimiento"},
        {"Data di nascita", "Data nascita", "Nascita"}}},
      // odd_birth
      {{{"Foaled", "Whelped", "Lambed", "Day"},
        {"Werpdatum", "Afgelamd", "Dag", "Gefokt op"},
        {"Wurfdatum", "Wurftag", "Geb. am", "Ablammung"},
        {"N\u00E9 le", "N\u00E9(e) le", "Mise bas", "Agnelage"},
        {"Parto", "Nacido el", "F. nac.", "Fec. parto"},
        {"Parto", "Nato il", "Nato/a il", "Dt. parto"}}},
      // colour
      {{{"Colour", "Color", "Coat"},
        {"Kleur", "Vachtkleur"},
        {"Farbe", "Farbschlag"},
        {"Robe", "Couleur"},
        {"Capa", "Color"},
        {"Mantello", "Colore"}}},
      // breeder
      {{{"Breeder", "Bred by"},
        {"Fokker", "Naam fokker"},
        {"Z\u00FCchter", "Z\u00FCchter Name"},
        {"\u00C9leveur", "Naisseur"},
        {"Criador", "Ganadero"},
        {"Allevatore", "Allevamento"}}},
      // owner
      {{{"Owner", "Keeper"},
        {"Eigenaar", "Houder"},
        {"Besitzer", "Halter"},
        {"Propri\u00E9taire", "D\u00E9tenteur"},
        {"Propietario", "Titular"},
        {"Proprietario", "Detentore"}}},
      // herd
      {{{"Herd", "Region", "Variety"},
        {"Subpopulatie", "Regio", "Vari\u00EBteit"},
        {"Herde", "Region", "Schlag"},
        {"Troupeau", "R\u00E9gion"},
        {"Reba\u00F1o", "Regi\u00F3n"},
        {"Gregge", "Regione"}}},
      // weight
      {{{"Weight", "Height"},
        {"Gewicht", "Schofthoogte"},
        {"Gewicht", "Widerristh\u00F6he"},
        {"Poids", "Taille"},
        {"Peso", "Alzada"},
        {"Peso", "Altezza"}}},
      // death
      {{{"Died", "Date of death"},
        {"Overleden", "Sterfdatum"},
        {"Abgang", "Gestorben"},
        {"Mort le", "Sortie"},
        {"Baja", "Fecha de muerte"},
        {"Morto il", "Data morte"}}},
      // registered
      {{{"Registered", "Entry date"},
        {"Ingeschreven", "Datum inschrijving"},
        {"Eintrag", "Eingetragen"},
        {"Inscrit le", "Date d'inscription"},
        {"Alta", "Fecha de registro"},
        {"Iscritto", "Data iscrizione"}}},
      // status
      {{{"Status", "State"},
        {"Status", "Stand"},
        {"Status", "Zustand"},
        {"Statut", "\u00C9tat"},
        {"Estado"},
        {"Stato"}}},
      // notes
      {{{"Notes", "Remarks"},
        {"Opmerkingen", "Notitie"},
        {"Bemerkung", "Notiz"},
        {"Remarques", "Notes"},
        {"Observaciones", "Notas"},
        {"Note", "Osservazioni"}}},
      // grandsire
      {{{"Sire's sire", "Paternal grandsire"},
        {"Vaders vader", "Grootvader"},
        {"Vatersvater", "Gro\u00DFvater"},
        {"Grand-p\u00E8re", "P\u00E8re du p\u00E8re"},
        {"Abuelo paterno", "Padre del padre"},
        {"Nonno paterno", "Padre del padre"}}},
      // chip
      {{{"Chip", "Microchip", "Transponder no."},
        {"Chip", "Chipnummer", "Transponder"},
        {"Chip-Nr.", "Transponder", "Mikrochip"},
        {"Puce", "N\u00B0 de puce", "Transpondeur"},
        {"Microchip", "Chip", "Transponder"},
        {"Microchip", "Chip", "N. chip"}}},
      // sire_chip
      {{{"Sire chip", "Sire microchip", "Chip of sire"},
        {"Chip vader", "Vader chipnr", "Transponder vader"},
        {"Vater Chip", "Chip-Nr. Vater", "V-Chip"},
        {"Puce p\u00E8re", "Puce du p\u00E8re", "P\u00E8re transpondeur"},
        {"Chip padre", "Microchip del padre"},
        {"Chip padre", "Microchip padre"}}},
      // dam_chip
      {{{"Dam chip", "Dam microchip", "Chip of dam"},
        {"Chip moeder", "Moeder chipnr", "Transponder moeder"},
        {"Mutter Chip", "Chip-Nr. Mutter", "M-Chip"},
        {"Puce m\u00E8re", "Puce de la m\u00E8re", "M\u00E8re transpondeur"},
        {"Chip madre", "Microchip de la madre"},
        {"Chip madre", "Microchip madre"}}},
      // row
      {{{"ID", "No", "Record"},
        {"ID", "Volgnr", "Record"},
        {"ID", "Lfd. Nr.", "Satz"},
        {"ID", "Ligne"},
        {"ID", "L\u00EDnea"},
        {"ID", "Riga"}}},
  };
  return table;
}

const std::array<std::vector<SexStyle>, tongue_count>& all_sex_styles() {
  static const std::array<std::vector<SexStyle>, tongue_count> table = {{
      {{"M/F", "dog", {"M"}, {"F"}},
       {"Male/Female", "sheep", {"Male"}, {"Female"}},
       {"Dog/Bitch", "dog", {"Dog"}, {"Bitch"}},
       {"Stallion/Mare", "horse", {"Stallion", "Gelding", "Colt"}, {"Mare", "Filly"}},
       {"Ram/Ewe", "sheep", {"Ram", "Wether", "Ram lamb"}, {"Ewe", "Ewe lamb"}},
       {"Bull/Cow", "cattle", {"Bull", "Steer"}, {"Cow", "Heifer"}},
       {"1/2", "other", {"1"}, {"2"}, true},
       {"R/E", "sheep", {"R"}, {"E"}, true},
       {"B/C", "cattle", {"B"}, {"C"}, true}},
      {{"m/v", "dog", {"m"}, {"v"}},
       {"mannelijk/vrouwelijk", "other", {"mannelijk"}, {"vrouwelijk"}},
       {"ram/ooi", "sheep", {"Ram", "Hamel"}, {"Ooi"}},
       {"reu/teef", "dog", {"Reu"}, {"Teef"}},
       {"hengst/merrie", "horse", {"Hengst", "Ruin"}, {"Merrie"}},
       {"stier/koe", "cattle", {"Stier", "Os"}, {"Koe", "Vaars"}},
       {"H/M", "horse", {"H"}, {"M"}, true},
       {"S/K", "cattle", {"S"}, {"K"}, true},
       {"R/T", "dog", {"R"}, {"T"}, true},
       {"V/M", "other", {"V"}, {"M"}, true}},  // vader, moeder
      {{"m/w", "dog", {"m"}, {"w"}},
       {"m\u00E4nnlich/weiblich", "other", {"m\u00E4nnlich"}, {"weiblich"}},
       {"R\u00FCde/H\u00FCndin", "dog", {"R\u00FCde"}, {"H\u00FCndin"}},
       {"Hengst/Stute", "horse", {"Hengst", "Wallach"}, {"Stute"}},
       {"Widder/Mutter", "sheep", {"Widder", "Hammel"}, {"Mutter"}},
       {"Bock/Aue", "sheep", {"Bock"}, {"Aue"}},
       {"W/M", "sheep", {"W"}, {"M"}, true},  // Widder, Mutter
       {"R/H", "dog", {"R"}, {"H"}, true},
       {"1/2", "other", {"1"}, {"2"}, true}},
      {{"M/F", "other", {"M"}, {"F"}},
       {"m\u00E2le/femelle", "dog", {"M\u00E2le"}, {"Femelle"}},
       {"\u00E9talon/jument", "horse", {"\u00C9talon", "Hongre"}, {"Jument", "Pouliche"}},
       {"b\u00E9lier/brebis", "sheep", {"B\u00E9lier"}, {"Brebis", "Agnelle"}},
       {"taureau/vache", "cattle", {"Taureau", "B\u0153uf"}, {"Vache", "G\u00E9nisse"}},
       {"1/2", "cattle", {"1"}, {"2"}, true},
       {"B/M", "sheep", {"B"}, {"M"}, true}},  // belier, mere
      {{"M/H", "dog", {"M"}, {"H"}, true},     // macho, hembra
       {"Macho/Hembra", "other", {"Macho"}, {"Hembra"}},
       {"Semental/Yegua", "horse", {"Semental", "Castrado", "Potro"}, {"Yegua", "Potra"}},
       {"Carnero/Oveja", "sheep", {"Carnero"}, {"Oveja", "Cordera"}},
       {"Toro/Vaca", "cattle", {"Toro", "Buey"}, {"Vaca", "Novilla"}},
       {"1/2", "other", {"1"}, {"2"}, true}},
      {{"M/F", "dog", {"M"}, {"F"}},
       {"Maschio/Femmina", "other", {"Maschio"}, {"Femmina"}},
       {"Stallone/Cavalla", "horse", {"Stallone", "Castrone", "Puledro"}, {"Cavalla", "Puledra"}},
       {"Ariete/Pecora", "sheep", {"Ariete"}, {"Pecora", "Agnella"}},
       {"Toro/Vacca", "cattle", {"Toro", "Bue"}, {"Vacca", "Manza"}},
       {"2/1", "other", {"2"}, {"1"}, true}},
  }};
  return table;
}

const WordsByTongue& all_unknown_words() {
  static const WordsByTongue table = {{
      {"unknown", "Unregistered", "Unknown sire", "not recorded", "wild caught", "WILD", "Founder", "Import"},
      {"onbekend", "onbekende vader", "n.b.", "NB", "geen", "Import", "wildvang"},
      {"unbekannt", "k.A.", "Wildfang", "fremd", "unb.", "N.N."},
      {"inconnu", "non connu", "N.C.", "N.D.", "non renseign\u00E9"},
      {"desconocido", "sin datos", "no consta", "N.D.", "S/D"},
      {"sconosciuto", "ignoto", "non noto", "N.D.", "N.N."},
  }};
  return table;
}

const std::array<WordsByTongue, 2>& all_months() {
  static const std::array<WordsByTongue, 2> table = {{
      {{{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
        {"jan", "feb", "mrt", "apr", "mei", "jun", "jul", "aug", "sep", "okt", "nov", "dec"},
        {"Jan", "Feb", "Mrz", "Apr", "Mai", "Jun", "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"},
        {"janv", "f\u00E9vr", "mars", "avr", "mai", "juin", "juil", "ao\u00FBt", "sept", "oct", "nov", "d\u00E9c"},
        {"ene", "feb", "mar", "abr", "may", "jun", "jul", "ago", "sep", "oct", "nov", "dic"},
        {"gen", "feb", "mar", "apr", "mag", "giu", "lug", "ago", "set", "ott", "nov", "dic"}}},
      {{{"January", "February", "March", "April", "May", "June", "July", "August", "September", "October", "November",
         "December"},
        {"januari", "februari", "maart", "april", "mei", "juni", "juli", "augustus", "september", "oktober", "november",
         "december"},
        {"Januar", "Februar", "M\u00E4rz", "April", "Mai", "Juni", "Juli", "August", "September", "Oktober", "November",
         "Dezember"},
        {"janvier", "f\u00E9vrier", "mars", "avril", "mai", "juin", "juillet", "ao\u00FBt", "septembre", "octobre",
         "novembre", "d\u00E9cembre"},
        {"enero", "febrero", "marzo", "abril", "mayo", "junio", "julio", "agosto", "septiembre", "octubre", "noviembre",
         "diciembre"},
        {"gennaio", "febbraio", "marzo", "aprile", "maggio", "giugno", "luglio", "agosto", "settembre", "ottobre",
         "novembre", "dicembre"}}},
  }};
  return table;
}

const WordsByTongue& all_names() {
  static const WordsByTongue table = {{
      {"Bracken", "Duke", "Molly", "Zo\u00EB", "Heather", "Chlo\u00EB", "Ren\u00E9", "Rex", "Bess", "Caf\u00E9 Noir",
       "Moss", "Nell"},
      {"Klaartje", "Zo\u00EB", "Bertha", "Ad\u00E9", "Joris", "Femke", "Anne", "Hi\u00EBr", "Kobus", "Co\u00EBn",
       "Sjoerd", "Tr\u00FCs"},
      {"Br\u00F6sel", "Rosi", "J\u00E4ger", "M\u00FCller", "Greta", "K\u00E4the", "Sch\u00F6ne", "Wei\u00DF", "Alma",
       "B\u00E4r", "Fritz", "Gr\u00FCn"},
      {"Ch\u00E9rie", "No\u00EBl", "Fr\u00E9gate", "Belle", "L\u00E9on", "H\u00E9l\u00E8ne", "Gar\u00E7on",
       "Tr\u00E8fle", "Ulysse", "C\u00F4te", "Ma\u00EFs", "Rosette"},
      {"Le\u00F3n", "Ni\u00F1o", "Mar\u00EDa", "Paloma", "Jos\u00E9", "Ca\u00F1a", "Raz\u00F3n", "Lola", "\u00C1guila",
       "Bolero", "Estrella", "Pe\u00F1a"},
      {"Nicol\u00F2", "Citt\u00E0", "Bella", "Cos\u00EC", "Stella", "Virt\u00F9", "Perch\u00E9", "Rosa", "Pippo",
       "Bont\u00E0", "Gi\u00F2", "Luna"},
  }};
  return table;
}

const WordsByTongue& all_titles() {
  static const WordsByTongue table = {{
      {"Herd book, all animals", "Report of 2020"},
      {"Stamboek, alle dieren", "Uitdraai 2020"},
      {"Zuchtbuch, alle Tiere", "Auszug 2020"},
      {"Livre g\u00E9n\u00E9alogique", "\u00C9tat 2020"},
      {"Libro geneal\u00F3gico", "Informe 2020"},
      {"Libro genealogico", "Elenco 2020"},
  }};
  return table;
}

const WordsByTongue& all_footers() {
  static const WordsByTongue table = {{
      {"# records", "Printed on 3-4-2021", "Total: # animals"},
      {"Aantal dieren: #", "Afgedrukt op 3-4-2021", "Totaal: # dieren"},
      {"Anzahl Tiere: #", "Gedruckt am 3.4.2021", "Summe: # Tiere"},
      {"Nombre d'animaux : #", "\u00C9dit\u00E9 le 3/4/2021", "Total : # animaux"},
      {"Total: # animales", "Impreso el 3/4/2021"},
      {"Totale: # animali", "Stampato il 3/4/2021"},
  }};
  return table;
}

std::size_t index_of(Tongue tongue) {
  return static_cast<std::size_t>(tongue);
}

}  // namespace

std::span<const std::string_view> headings_of(Heading heading, Tongue tongue) {
  return all_headings()[static_cast<std::size_t>(heading)][index_of(tongue)];
}

std::span<const SexStyle> sex_styles_of(Tongue tongue) {
  return all_sex_styles()[index_of(tongue)];
}

std::span<const std::string_view> unknown_words_of(Tongue tongue) {
  return all_unknown_words()[index_of(tongue)];
}

std::span<const std::string_view> shared_unknown_words() {
  static const Words words = {"",   "0",  "NA",    "-",    "?",    "000", "U",     "x",      "-1",
                              "NN", "NB", "99999", "#N/A", "#N/B", "#NV", "#REF!", "#VERW!", "999999999"};
  return words;
}

std::span<const std::string_view> months_of(Tongue tongue, bool in_full) {
  return all_months()[in_full ? 1 : 0][index_of(tongue)];
}

std::span<const std::string_view> names_of(Tongue tongue) {
  return all_names()[index_of(tongue)];
}

std::span<const std::string_view> eastern_names() {
  static const Words names = {"Wac\u0142aw",     "\u017Baba",   "Jestrab",     "Kr\u00E1l",
                              "\u0160\u00E1rka", "Krak\u00F3w", "Gy\u00F6rgy", "L\u00E1szl\u00F3",
                              "Csaba",           "\u017Diga",   "Zlata",       "\u0141ukasz"};
  return names;
}

std::span<const std::string_view> titles_of(Tongue tongue) {
  return all_titles()[index_of(tongue)];
}

std::span<const std::string_view> footers_of(Tongue tongue) {
  return all_footers()[index_of(tongue)];
}

}  // namespace pedigreewatch::test
