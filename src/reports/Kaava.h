// Formulas of the report engine: selection formulas, named formulas, sort fields and the
// expressions of a definition's items share one small language:
//
//   {table.field}  {@Name}  123  12.5  "text"  'text'  True  False
//   not  and  or  =  <>  <  <=  >  >=  like  +  -  *  /  ( )  Function(arg, …)  PageNumber
//
// Keywords and function names are read in any case. This file reads the text into a tree;
// KaavaSql translates a tree to SQL and Lauseke evaluates it over a row.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

enum class Operaattori {
    Tai, Ja, Ei,
    Yhtasuuri, Erisuuri, Pienempi, PienempiTaiYhta, Suurempi, SuurempiTaiYhta, Like,
    Plus, Miinus, Kerto, Jako, Vastaluku
};

struct Solmu {
    enum class Laji { Luku, Teksti, Totuus, Kentta, Kaava, Funktio, Operaatio };

    Laji laji = Laji::Luku;
    double luku = 0;       // Luku
    bool kokonainen = true; // Luku: written without decimals
    bool totuus = false;   // Totuus
    QString teksti;        // Teksti: the text; Kaava: the formula's name; Funktio: its name
    QString taulu, kentta; // Kentta, as written
    Operaattori op = Operaattori::Ja;
    std::vector<std::unique_ptr<Solmu>> lapset;
    int kohta = 0;         // where it starts in the formula text

    // Filled when a definition is bound to its data: the column of a field in the fetched row.
    int sarake = -1;
};

using SolmuPtr = std::unique_ptr<Solmu>;

// Reads a whole formula. Throws RaporttiVirhe naming `missa` (what the formula belongs to) and
// the place of the fault; an empty text is an error too, so that nothing reads as "all rows".
SolmuPtr JasennaKaava(const QString &teksti, const QString &missa);

// A named formula as the runner hands it in: "Name= 'text'". When the text after "=" begins
// and ends with the same quote it is taken as typed between them (an apostrophe inside a club's
// name prints as it is); otherwise it is read as a formula.
struct NimettyKaava {
    QString nimi;
    std::shared_ptr<Solmu> lauseke;
};
NimettyKaava JasennaNimettyKaava(const QString &teksti);

// A sort field: "+{jr.jrSukunimi}" or "-{jr.jrSyntyma}" (no sign: ascending).
struct Lajittelu {
    bool laskeva = false;
    std::shared_ptr<Solmu> kentta;
};
Lajittelu JasennaLajittelu(const QString &teksti);

// Every field and formula name a tree refers to, in the order met.
void KeraaViittaukset(Solmu &s, std::vector<Solmu *> &kentat, QStringList &kaavat);
