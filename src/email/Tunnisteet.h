// The merge tokens of the e-mail templates and row texts: "<" + name + ":" + width + ">", the name
// in any case. Width 0 (or no number) puts the value in as it stands; a larger width cuts a longer
// value to its left part or pads a shorter one with blanks after it. A width over 9999 is no width.
#pragma once

#include <QString>
#include <QList>
#include <QStringView>
#include <utility>

// Every occurrence of the token replaced by the value. A value that itself holds the token is
// not searched again: the merge always ends.
QString KorvaaTunniste(const QString &teksti, const QString &tunniste, const QString &arvo);

// The width of the token's first occurrence; 0 when it is not there or its width is no number.
int TunnisteenLeveys(const QString &teksti, const QString &tunniste);

// One occurrence of a token: where it starts ("<"), one past its ">", and its width.
struct Tunnisteosuma {
    qsizetype alku = -1;
    qsizetype loppu = -1;
    int leveys = 0;
    bool loytyi() const { return alku >= 0; }
};

// The token when one starts exactly at `kohta`; nothing found otherwise (no "<name:" there, or
// no ">" after it).
Tunnisteosuma TunnisteKohdassa(QStringView teksti, qsizetype kohta, QStringView tunniste);

// The value cut or padded to the width.
QString LeveyteenSovitettu(const QString &arvo, int leveys);

// Token names with their values.
using Tunnistearvot = QList<std::pair<QString, QString>>;

// Every token of the list replaced in one pass from the start: what a value brings in is never
// searched again, by its own token or by any other. Tokens not in the list stay as they are.
QString KorvaaTunnisteet(QStringView teksti, const Tunnistearvot &arvot);
