// The writing of open invoices: every invoice run calls these and nothing else, so an invoice
// looks the same whichever run made it. Each writes on the run's connection, inside its
// transaction.
#pragma once

#include "platform/currency.h"
#include "platform/database.h"

#include <QDate>
#include <QString>
#include <optional>

// The number of open invoices: a run refuses to start while there are any.
long LaskujenMaara(db::Database &db);

// Stores the run's additional text and gives its meID; 0 and nothing stored for an empty text.
qint64 LisaaViesti(db::Database &db, const QString &teksti);

struct UusiLasku {
    qint64 jrID = 0;
    QDate erapaiva;
    QDate laskupaiva;
    qint64 laskunumero = 0;
    QString viitenumero;
    Currency hinta;
    QString teksti; // the bank-transfer text
    QString otsake;
    qint64 meID = 0;
    bool perhe = false;
    bool omin = false;
    bool eiViitetta = false;    // "Tulosta ilman viitettä": the reference is dropped
    bool jasenmaksu = false;    // "Tee jäsenmaksuna": the member's fee state is kept on the invoice
    bool eiLoppusummaa = false;
    bool kaytaPankkitili1 = false;
    QString pankkitili1;        // the chosen account; empty unless kaytaPankkitili1
};

// One open invoice; returns its jmID.
qint64 LisaaLasku(db::Database &db, const UusiLasku &lasku);

// One row of an open invoice. No amount (std::nullopt) stores Null: the row prints as text alone.
void LisaaLaskurivi(db::Database &db, qint64 jrID, qint64 jmID, qint64 meID, const QDate &paiva,
                    std::optional<Currency> hinta, const QString &teksti, qint64 mlID = 0);

// The same two for a run that writes a whole batch: the statements are prepared once and only
// their values change from one invoice to the next.
class Laskukirjoitin {
public:
    explicit Laskukirjoitin(db::Database &db);
    qint64 lisaaLasku(const UusiLasku &lasku);
    void lisaaRivi(qint64 jrID, qint64 jmID, qint64 meID, const QDate &paiva, std::optional<Currency> hinta,
                   const QString &teksti, qint64 mlID = 0);
    // The member's fee now unpaid, as a fee invoice leaves it.
    void merkitseMaksamatta(qint64 jrID);

private:
    db::Database &m_db;
    db::Statement m_jasenmaksu, m_lasku, m_rivi, m_maksamatta;
};

// The reference of an invoice: the payer's personal reference as it stands when asked for and
// not empty, otherwise the invoice number followed by its check digit.
QString LaskunViite(bool henkilokohtainen, const QString &jrViitenumero, qint64 laskunumero);

// The invoice-number rule: the message of two lines when the counter is not above every number
// in use (the history counts), nothing when a run may go on.
std::optional<QString> LaskunumeroVirhe(db::Database &db);
