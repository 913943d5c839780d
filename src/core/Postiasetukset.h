// The mail route and connection of the settings in force, for whoever sends: a run opens one
// sender with these and sends all its messages through it.
#pragma once

#include "platform/mail.h"

// The SMTP connection from the settings window's fields (the password as typed).
struct SmtpSyote {
    QString tSMTP;
    QString tSMTPPortti;
    int cmbSMTPSuojaus = 0;
    QString tSMTPKayttaja;
    QString tSMTPSalasana;
    QString tSMTPVarmenne;
};

mail::SmtpSettings SmtpAsetukset(const SmtpSyote &s);

// From the globals, the password from its store.
mail::Settings Lahetysasetukset();

// The club as the sender: its name and the Email setting.
mail::Address Lahettaja();

// "Testaa yhteys": connects and logs in by SMTP (nothing is sent), or looks for the system's mail
// program. The result as a sentence for the user; `onnistui` tells which way it went.
QString TestaaPostiyhteys(const mail::Settings &asetukset, bool *onnistui = nullptr);
