// Marking the payments of the bank's file paid, from the two lists of the payment window that
// have a button for it: the received payments, and the wrong sums the user chose. A whole press of
// a button is one transaction; a row that cannot be marked is named afterwards, the others are done.
#pragma once

#include "payments/Viiteaineisto.h"
#include "payments/Viitemaksulajittelu.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace db {
class Database;
}

struct ViitemaksujenMerkinta {
    int merkitty = 0;            // invoices marked paid (an invoice listed twice counts once)
    QStringList merkitsematta;   // the rows' texts that were not marked, with the reason
};

// Each row's invoice marked paid by MerkitseMaksetuksi (and, with `poista`, deleted with its rows),
// all in one transaction. A row whose invoice is no longer in the history is named, not marked.
ViitemaksujenMerkinta MerkitseMaksetuiksi(db::Database &db, const QList<ViitemaksuRivi> &rivit, bool poista);

// The message that names the rows left unmarked; empty when every row was marked.
QString MerkitsemattomatViesti(const ViitemaksujenMerkinta &m);

// For each row of the wrong sums, whether the batch has a payment on its invoice's reference that is
// larger than the invoice's total: the rows the button "V&alitse suur. suor." selects.
QList<bool> SuuremmatSuoritukset(db::Database &db, const ViiteEra &era, const QList<ViitemaksuRivi> &virheet);

// The overpayment log's lines for the invoices of the rows: one per payment of the batch on the
// invoice's reference that is larger than its total, fields joined by ";", amounts in the Finnish
// number form ("25,5"). Read before the invoices are marked (a deleted one gives no line).
QStringList YlisuoritusRivit(db::Database &db, const ViiteEra &era, const QList<ViitemaksuRivi> &rivit);

// The overpayment log opened for appending. A log that cannot be opened (a folder that does not
// exist, no permission) gives the program's message in `virhe`.
class Suoritusloki {
public:
    explicit Suoritusloki(QString polku) : m_polku(std::move(polku)) {}
    bool avaa(QString *virhe);
    // Appends the lines; false, with the message, when they could not be written.
    bool kirjoita(const QStringList &rivit, QString *virhe);

private:
    QString virheviesti(int numero, const QString &teksti) const;
    QString m_polku;
    bool m_auki = false;
};

// The wrong sums' button: the overpayment log (the setting Suoritustiedosto, none when empty) gets a
// line for each payment of `ensimmainenEra` larger than its invoice's total, and the rows are marked
// as MerkitseMaksetuiksi marks them. A log that cannot be opened is told and asked about: No ends it
// with nothing marked (nothing is returned). The lines are written once the marks are committed.
std::optional<ViitemaksujenMerkinta> MerkitseYlisuoritukset(db::Database &db, const ViiteEra &ensimmainenEra,
                                                          const QList<ViitemaksuRivi> &rivit, bool poista);
