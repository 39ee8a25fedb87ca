// The help behind "?" in each step, in both languages: what the step is for, and what to do where something is not right.

import type { Language } from "./texts";
import type { StepName } from "./desk";

/** A question or a thing on the page, and what is said of it, in both languages. */
interface HelpEntry { about: readonly [string, string]; said: readonly [string, string]; }

const help: Record<StepName, readonly HelpEntry[]> = {
  data: [
    { about: ["Which file?", "Welk bestand?"],
      said: ["The export of your herdbook program: a line for each animal, with its id, father, mother, sex and date of birth. CSV, text and workbooks (.xlsx, .ods) can be read. Export all animals, also dead ones: they are the ancestors.",
        "De export van uw stamboekprogramma: een regel voor elk dier, met zijn id, vader, moeder, geslacht en geboortedatum. CSV, tekst en werkmappen (.xlsx, .ods) zijn te lezen. Exporteer alle dieren, ook de dode: dat zijn de voorouders."] },
    { about: ["A column is taken wrongly", "Een kolom is verkeerd gelezen"],
      said: ["Above each column stands what it holds. Choose something else there; the rest of the page follows at once.",
        "Boven elke kolom staat wat erin staat. Kies daar iets anders; de rest van de pagina volgt meteen."] },
    { about: ["Next year again", "Volgend jaar weer"],
      said: ["Drop the new export together with the files that you saved here: the answers (.answers), the corrections (_corrections.tsv) and the animals left out (_left_out.tsv). All of them apply at once.",
        "Laat de nieuwe export vallen samen met de bestanden die u hier bewaarde: de antwoorden (.answers), de correcties (_corrections.tsv) en de weggelaten dieren (_left_out.tsv). Ze gelden dan meteen."] },
    { about: ["Letters with accents look wrong", "Letters met accenten kloppen niet"],
      said: ["Open \"How the file is read\" and choose other letters, until a name that you know looks right.",
        "Open \"Hoe het bestand gelezen wordt\" en kies andere letters, tot een naam die u kent er goed uitziet."] },
    { about: ["Is it safe?", "Is het veilig?"],
      said: ["The page sends nothing anywhere, and your export is never changed. When you close the page your data are gone from it.",
        "De pagina verstuurt niets, en uw export wordt nooit veranderd. Als u de pagina sluit, zijn uw gegevens eruit verdwenen."] },
  ],
  settings: [
    { about: ["What is asked here", "Wat hier gevraagd wordt"],
      said: ["What the file itself cannot say: how dates are written, which words mean male and female, which texts mean that a parent is not known. A yellow bar is a question that must be answered.",
        "Wat het bestand zelf niet kan zeggen: hoe datums geschreven zijn, welke woorden mannelijk en vrouwelijk betekenen, welke teksten betekenen dat een ouder niet bekend is. Een gele balk is een vraag die beantwoord moet worden."] },
    { about: ["Unknown parents", "Onbekende ouders"],
      said: ["If \"wild\" or \"n.n.\" is taken for an animal, it becomes one father of many, and inbreeding comes out far too high. Add such texts here.",
        "Als \"wild\" of \"n.n.\" voor een dier wordt gehouden, wordt het één vader van velen, en komt de inteelt veel te hoog uit. Voeg zulke teksten hier toe."] },
    { about: ["Subpopulations and colours", "Subpopulaties en kleuren"],
      said: ["Those that you tick get figures of their own in the report. Nothing changes in the figures of all animals.",
        "Wat u aanvinkt krijgt eigen cijfers in het rapport. Aan de cijfers van alle dieren verandert niets."] },
    { about: ["The steer file and the answers", "De sturingsfile en de antwoorden"],
      said: ["The steer file and the data file are for the program pedigreewatch. The answers are for this page: keep them for next year.",
        "De sturingsfile en het databestand zijn voor het programma pedigreewatch. De antwoorden zijn voor deze pagina: bewaar ze voor volgend jaar."] },
  ],
  check: [
    { about: ["What to mend first", "Wat eerst?"],
      said: ["From the top down: what stops the run, then what makes figures wrong. \"Worth a look\" may be right as it is.",
        "Van boven naar beneden: wat de run stopt, dan wat cijfers fout maakt. Wat het bekijken waard is kan goed zijn zoals het er staat."] },
    { about: ["How to mend", "Hoe herstellen?"],
      said: ["\"Show\" lists one kind, \"Mend\" shows the lines. Change the cell with the red edge and press Enter, or take what is proposed. Look in your herdbook first: the page cannot know which of two dates is right.",
        "\"Toon\" geeft de lijst van één soort, \"Herstel\" de regels. Verander het vakje met de rode rand en druk op Enter, of neem wat wordt voorgesteld. Kijk eerst in uw stamboek: de pagina kan niet weten welke van twee datums klopt."] },
    { about: ["Where do my changes go?", "Waar blijven mijn wijzigingen?"],
      said: ["Into a list of corrections. Save it before you close the page. Change the same in your office program, with the list for the office; next year the page says which are done.",
        "In een lijst met correcties. Bewaar haar voordat u de pagina sluit. Wijzig hetzelfde in uw stamboekprogramma, met de lijst voor kantoor; volgend jaar zegt de pagina welke gedaan zijn."] },
    { about: ["I cannot find out what is right", "Ik weet niet wat klopt"],
      said: ["Make it unknown, or go on without these dates or parents. An unknown parent does less harm than a wrong one, but inbreeding then comes out too low: the results say how complete the pedigrees are.",
        "Maak het onbekend, of ga verder zonder deze datums of ouders. Een onbekende ouder is minder erg dan een verkeerde, maar de inteelt komt dan te laag uit: de resultaten zeggen hoe compleet de stambomen zijn."] },
  ],
  results: [
    { about: ["Where to begin", "Waar te beginnen"],
      said: ["With the first part: how the breed stands, and how sure that is. The charts behind it show where it comes from.",
        "Bij het eerste deel: hoe het ras ervoor staat, en hoe zeker dat is. De grafieken erna laten zien waar dat vandaan komt."] },
    { about: ["F, kinship and Ne", "F, verwantschap en Ne"],
      said: ["F, inbreeding: how related the parents of an animal are; 6.25 % is that of first cousins' young. Kinship: how related two animals are; it is the F that their young would have. Ne, the effective size: how fast inbreeding rises; the lower, the faster.",
        "F, inteelt: hoe verwant de ouders van een dier zijn; 6,25 % hoort bij jongen van volle neef en nicht. Verwantschap: hoe verwant twee dieren zijn; dat is de F die hun jongen zouden hebben. Ne, de effectieve populatiegrootte: hoe snel de inteelt stijgt; hoe lager, hoe sneller."] },
    { about: ["A low F", "Een lage F"],
      said: ["It may mean that little is known of the ancestors. Look at the completeness beside it.",
        "Die kan betekenen dat er weinig voorouders bekend zijn. Kijk naar de compleetheid erbij."] },
    { about: ["An animal", "Een dier"],
      said: ["Type a part of its id or name above, or press any id: its card has its pedigree of five generations. \"All animals\" is a table that can be sorted.",
        "Typ hierboven een deel van zijn id of naam, of druk op een id: op zijn kaart staat zijn stamboom van vijf generaties. \"Alle dieren\" is een tabel die te sorteren is."] },
    { about: ["Keeping and printing", "Bewaren en afdrukken"],
      said: ["The buttons save the report, the page and the tables. Ctrl+P prints what is shown, without buttons.",
        "De knoppen bewaren het rapport, de pagina en de tabellen. Ctrl+P drukt af wat er staat, zonder knoppen."] },
  ],
  breeding: [
    { about: ["A pair", "Een paar"],
      said: ["Choose a female and a male: below stand the inbreeding F of their young and the ancestors that it comes from.",
        "Kies een moeder en een vader: eronder staan de inteelt F van hun jongen en de voorouders waar die vandaan komt."] },
    { about: ["Which male is best?", "Welke vader is de beste?"],
      said: ["A low F is good for this litter alone. For the breed choose among males with about the same F the one with the lowest mean kinship. If little is known of his ancestors, both say little.",
        "Een lage F is alleen goed voor dit nest. Kies voor het ras uit vaders met ongeveer dezelfde F die met de laagste gemiddelde verwantschap. Is er weinig van zijn voorouders bekend, dan zeggen beide weinig."] },
    { about: ["An animal that cannot be used", "Een dier dat niet gebruikt kan worden"],
      said: ["Leave it out, with a reason: it then stands in no list of males and in no plan. The list of animals left out can be saved and dropped with next year's export.",
        "Laat het weg, met een reden: dan staat het niet in de lijst van vaders en niet in een plan. De lijst van weggelaten dieren is te bewaren, en met de export van volgend jaar te laten vallen."] },
    { about: ["Several at once", "Meer tegelijk"],
      said: ["The table shows all pairs of some females and some males. The plan goes further: it says who should breed, how often and with whom, so that the breed loses as little diversity as possible.",
        "De tabel toont alle paren van enkele moeders en enkele vaders. Het plan gaat verder: het zegt wie moet fokken, hoe vaak en met wie, zodat het ras zo min mogelijk variatie verliest."] },
    { about: ["What would a rule do?", "Wat zou een regel doen?"],
      said: ["Fill in the rules under \"Forecast\": the population goes on as it is bred now and under these rules, a hundred times, and the charts show how far chance, and numbers of litters and sires that change as they did before, lead them apart. The forecast does not know whether breeders keep to their habits.",
        "Vul de regels in onder \"Vooruitblik\": de populatie gaat verder zoals er nu gefokt wordt en onder deze regels, honderd keer, en de grafieken tonen hoe ver het toeval, en aantallen nesten en vaders die veranderen zoals ze eerder deden, ze uiteen brengen. De vooruitblik weet niet of fokkers bij hun gewoonten blijven."] },
  ],
};

/** What is said of a step: pairs of what it is about and what is said. */
export function helpOf(step: StepName, language: Language): [string, string][] {
  const place = language === "en" ? 0 : 1;
  return help[step].map(({ about, said }) => [about[place], said[place]]);
}
