// The four typed values of an attribute, and how the text boxes that hold them are read and
// written. Every window of attributes goes through these, so a value typed anywhere is stored
// the same way.
#pragma once

#include <QString>
#include <QVariant>
#include <array>

// In the order the columns are named: date, whole number, money, memo.
enum class ArvoTyyppi { Paiva = 0, Luku = 1, Raha = 2, Muistio = 3 };
inline constexpr int ArvoTyyppeja = 4;
inline constexpr std::array<ArvoTyyppi, ArvoTyyppeja> KaikkiTyypit = {ArvoTyyppi::Paiva, ArvoTyyppi::Luku,
                                                                      ArvoTyyppi::Raha, ArvoTyyppi::Muistio};

// Column names by type: "piEnbldDate", "piDate", "ptValDate" …
QString KaytossaSarake(ArvoTyyppi t);
QString OletusSarake(ArvoTyyppi t);
QString ArvoSarake(ArvoTyyppi t);

// A value of the database as its box shows it: a date "d.M.yyyy", a number, money with at least
// two decimals and never fewer than it holds. Null is empty.
QString ArvoTekstiksi(ArvoTyyppi t, const QVariant &arvo);

// The box's text as the column takes it. Null when the text is empty or is not of the type
// (a date that is no date, a number that is none or is beyond a whole number's range);
// `kelpaa` then tells whether it was refused rather than empty. A whole number is rounded half
// to even; a memo is stored as typed.
QVariant TekstiArvoksi(ArvoTyyppi t, const QString &teksti, bool *kelpaa = nullptr);

// Leaving a box: what it shows afterwards. A date is rewritten in the short form; text that is
// not of the type is emptied and `hylatty` set, for the beep.
QString TekstiLahtiessa(ArvoTyyppi t, const QString &teksti, bool *hylatty);

// The boxes of a value panel: which types belong to the attribute (the enabled labels) and the
// text in each box.
struct ArvoSyote {
    std::array<bool, ArvoTyyppeja> kaytossa{};
    std::array<QString, ArvoTyyppeja> teksti;
    bool &kaytossaT(ArvoTyyppi t) { return kaytossa[size_t(t)]; }
    QString &tekstiT(ArvoTyyppi t) { return teksti[size_t(t)]; }
};

// The panel's texts turned into the values to store. A type that is not in use stays Null;
// a text that is refused is Null too, and its box is to be emptied.
struct TallennettavatArvot {
    std::array<QVariant, ArvoTyyppeja> arvo;
    std::array<bool, ArvoTyyppeja> kaytossa{};
    std::array<bool, ArvoTyyppeja> tyhjenna{};
};
TallennettavatArvot Tallennettaviksi(const ArvoSyote &syote);
