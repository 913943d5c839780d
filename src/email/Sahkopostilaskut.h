// The e-mail texts of invoices: the templates of the settings read, and an invoice of the open
// batch or of the history merged into them with its member, rows and payment terms.
#pragma once

#include "email/Sahkopohja.h"

#include <QList>
#include <optional>

namespace db { class Database; }

// The club's values from the settings.
Laskuttaja SeuranLaskuttaja();

// The template file read whole; nothing when it is missing or cannot be read.
std::optional<QString> LuePohjatiedosto(const QString &polku);

// A merged text, or the message that stopped the merge.
struct Sahkopostiteksti {
    QString teksti;
    QString viesti;
    // For the sending: the recipient and the subject.
    QString nimi, email, otsake;
    bool onnistui() const { return viesti.isEmpty(); }
};

// The invoice template of the settings (EmailPohja) for a run over the open batch.
Sahkopostiteksti LueLaskupohja();

// The open invoices in the order the preview browses them.
QList<qint64> AvoimetLaskut(db::Database &db);

// The open invoice `jmID` as the template shows it; an invoice or member that is not there
// leaves its values empty.
Sahkopostilasku AvoinLasku(db::Database &db, qint64 jmID);

// The invoice `jmID` of the open batch merged into `pohja`.
QString AvoimenLaskunTeksti(db::Database &db, const QString &pohja, qint64 jmID);

// The e-mail reminder of the history invoice `jmhID`: the reminder template (EmailKarhupohja)
// merged with the invoice's own figures. The preview words its refusals its own way and does
// not ask whether the member takes e-mail invoices.
Sahkopostiteksti MuistutuksenTeksti(db::Database &db, qint64 jmhID, bool esikatselu);

// The shipped templates lasku.txt and karhu.txt put in the program's folder where missing; an
// existing file is never touched. False when one could not be written.
bool VarmistaSahkopohjat(const QString &kansio);
