// The search conditions of the lists, labels, editable reports and the address export.
//
// The user's answer in the search-conditions window is kept in one parameter block that lives as
// long as the program. Four translations read it: the selection flags `jrMukaan`/`jrMukaan2` of
// `jr`, a selection formula for the fixed reports, a SELECT for the editable reports and a
// Finnish sentence for the report's heading. They agree in what they select except where the
// forms differ on purpose (see the functions).
#pragma once

#include "platform/database.h"

#include <QString>
#include <QVector>
#include <array>
#include <optional>
#include <stdexcept>

struct HakuParametrit {
    // Operator codes of every condition: 0 "<", 1 "=", 2 ">".
    enum Operaattori { Pienempi = 0, Yhtasuuri = 1, Suurempi = 2 };

    static constexpr int Paikkoja = 31;    // ValitutOminaisuudet, index 0 to 30
    static constexpr int Valittavissa = 30; // the window fills at most index 0 to 29

    // piID of the chosen attributes from index 0 up; 0 ends the list.
    std::array<qint32, Paikkoja> ValitutOminaisuudet{};
    bool bOminNot = false; // "EI": members without the attributes
    bool bOminAnd = false; // "JA": all of the attributes; off: any of them ("TAI")

    // Refinements on the value of a single attribute.
    QString sheDate;
    int iheDate = Yhtasuuri;
    QString sheLong;
    int iheLong = Yhtasuuri;
    QString sheCurrency;
    int iheCurrency = Yhtasuuri;

    QString dateSynt; // birth date, may hold the year wild card "*"
    int eqSynt = Yhtasuuri;
    QString dateLiit; // joining date, likewise
    int eqLiit = Yhtasuuri;

    QString lPostinumeroAlku;
    QString lPostinumeroLoppu;

    int lJasenmaksunTila = 2;  // 0 paid, 1 unpaid, 2 no matter
    int lKaikkiVaiPerheet = 0; // 0 all, 1 family heads only
    int iTulJarj = 0;          // print order: 0 surname, 1 postal code, 2 birth date
    int iPrintType = 0;        // which list report is being run

    // Count of the leading non-zero elements of ValitutOminaisuudet.
    int ValittujenMaara() const;
};

// The block of the running program: written by the search-conditions window (and the print-order
// choices), read by every list and export.
inline HakuParametrit Haku;

// A block that cannot be translated (a date that is no date, a number that is no number, an
// unknown operator). The window never writes one; the text is Finnish and names the value.
class HakuehtoVirhe : public std::runtime_error {
public:
    explicit HakuehtoVirhe(const QString &viesti);
    QString viesti() const { return m_viesti; }

private:
    QString m_viesti;
};

// "<", "=" or ">" for an operator code.
QString HakuOperaattoriTeksti(int koodi);

// The checks of the window's boxes on leaving them: the text to keep, or nothing when the text is
// refused (the window beeps and empties the box). An empty text is kept.
// Dates: a text with "*" stays as typed, a date is rewritten as d.M.yyyy.
std::optional<QString> TarkistaHakuPaiva(const QString &teksti);
// Whole numbers: a number is rewritten rounded to a whole number (half to even).
std::optional<QString> TarkistaHakuLuku(const QString &teksti);
// Amounts: a number stays as typed.
std::optional<QString> TarkistaHakuArvo(const QString &teksti);

// The attribute definitions of the window's list, in name order. Nameless definitions (left by an
// abandoned add) are deleted first, as every list of attributes does.
struct HakuOminaisuus {
    qint32 piID = 0;
    QString piNimi;
};
QVector<HakuOminaisuus> HakuOminaisuudet(db::Database &db);

// The flags: `jrMukaan` true for the members the block selects. Attribute stage, refinements and
// filters are written by one statement: all or nothing. A "*" in a date condition cannot be
// written as flags: the condition is dropped with a message and the run goes on. The postal
// range includes its ends here and compares the code as text. A member whose date is Null is not
// taken out by a date condition.
void AsetaMukaan(db::Database &db, const HakuParametrit &p = Haku);

// The attribute stage alone, without refinements and filters (the formula and SELECT forms lean
// on it when several attributes or "EI" are chosen). A single attribute goes by the JA or TAI
// path; `jrMukaan2` holds the intersection after a JA run.
void AsetaMukaanOminaisuudet(db::Database &db, const HakuParametrit &p = Haku);

// The selection formula of the fixed reports. May write the flags first (see above). The postal
// range is numeric here, on the twin column, and excludes its ends; a year wild card compares
// the year's text with like.
QString KoostaValintakaava(db::Database &db, const HakuParametrit &p = Haku);

// The SELECT of the editable reports, for SQLite, with its values bound in order. `sKentat` is
// the report's field list ("jrEtunimi, jrOsoite"); empty gives every field. May write the flags
// first. Members are joined with their attributes, so one member can come more than once.
struct ValintaSql {
    QString sql;
    db::Params arvot;
};
ValintaSql KoostaValintaSql(db::Database &db, const QString &sKentat, const HakuParametrit &p = Haku);

// The sentence of the report's heading ("Jäsenmaksu maksettu JA Postinumero >00100").
QString KoostaRajausteksti(db::Database &db, const HakuParametrit &p = Haku);
