// Evaluation of the expressions of a definition's items over the fetched rows. An expression is
// checked once (TarkistaLauseke) before any row is seen; after that evaluating it cannot fail:
// a value of the wrong kind gives Null, and Null prints as nothing.
#pragma once

#include "reports/Arvo.h"
#include "reports/Kaava.h"

#include <QHash>
#include <vector>

// The rows of a report: each row holds one value per fetched column.
struct Rivisto {
    int leveys = 0;
    int riveja = 0;
    std::vector<Arvo> solut;
    const Arvo *rivi(int i) const { return solut.data() + qsizetype(i) * leveys; }
};

using Kaavat = QHash<QString, std::shared_ptr<Solmu>>; // by name in lower case

// TotalPages is known only when the whole document is laid out: its place in a text is kept by
// this character and filled in at the end.
inline constexpr QChar KokonaissivutMerkki = QChar(0xE000);

struct Arviointi {
    const Rivisto *rivit = nullptr;
    int rivi = -1;               // the current row; -1 when there is none
    int edellisetRivit = 0;      // rows of the report before `rivit` (RecordNumber counts them)
    int koosteAlku = 0;          // Sum and Count run over rows [koosteAlku, koosteLoppu)
    int koosteLoppu = 0;
    int sivu = 1;
    const Kaavat *kaavat = nullptr;
    QDate tanaan;
};

Arvo Arvioi(const Solmu &s, const Arviointi &a);
// True for true, false for false and for anything else.
bool ArvioiEhto(const Solmu &s, const Arviointi &a);

// Throws RaporttiVirhe (prefixed with `missa`) for an unknown function or formula, a wrong
// number of arguments, a Sum inside a Sum, or a formula that refers to itself.
void TarkistaLauseke(const Solmu &s, const Kaavat &kaavat, const QString &missa);

// Whether the expression shows TotalPages (directly or through a formula).
bool KayttaaKokonaissivuja(const Solmu &s, const Kaavat &kaavat);

// Finnish comparison of two values: <0, 0, >0, or nothing when they cannot be compared.
std::optional<int> VertaaArvoja(const Arvo &a, const Arvo &b);
