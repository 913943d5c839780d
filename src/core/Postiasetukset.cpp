#include "core/Postiasetukset.h"

#include "core/MainModule.h"
#include "core/Postisalasana.h"
#include "platform/sendmailsender.h"
#include "platform/smtpsender.h"

namespace M = MainModule;

mail::SmtpSettings SmtpAsetukset(const SmtpSyote &s)
{
    mail::SmtpSettings a;
    a.host = s.tSMTP.trimmed();
    const int portti = s.tSMTPPortti.trimmed().toInt();
    a.port = portti > 0 && portti <= 65535 ? portti : 0;
    a.security = mail::Security(qBound(0, s.cmbSMTPSuojaus, 2));
    a.user = s.tSMTPKayttaja.trimmed();
    a.password = s.tSMTPSalasana;
    a.caFile = s.tSMTPVarmenne.trimmed();
    return a;
}

mail::Settings Lahetysasetukset()
{
    mail::Settings a;
    a.route = M::EmailSystem ? mail::Route::Smtp : mail::Route::System;
    a.smtp = SmtpAsetukset({M::SMTP, QString::number(M::SMTPPortti), M::SMTPSuojaus, M::SMTPKayttaja,
                            QString(), M::SMTPVarmenne});
    if (a.route == mail::Route::Smtp)
        a.smtp.password = LuePostisalasana(M::SMTPKayttaja, M::SMTP);
    return a;
}

mail::Address Lahettaja() { return {M::RegName, M::Email.trimmed()}; }

QString TestaaPostiyhteys(const mail::Settings &asetukset, bool *onnistui)
{
    bool ok = false;
    QString teksti;
    if (asetukset.route == mail::Route::Smtp) {
        const mail::SmtpSettings &s = asetukset.smtp;
        const QString virhe = mail::SmtpSender(s).testConnection();
        ok = virhe.isEmpty();
        if (!ok)
            teksti = QStringLiteral("Yhteyden testaus epäonnistui.\n\n") + virhe;
        else if (s.user.isEmpty())
            teksti = QStringLiteral("Yhteys palvelimeen %1 (portti %2) onnistui.").arg(s.host).arg(s.effectivePort());
        else
            teksti = QStringLiteral("Yhteys palvelimeen %1 (portti %2) onnistui ja palvelin hyväksyi kirjautumisen "
                                    "käyttäjätunnuksella %3.")
                         .arg(s.host)
                         .arg(s.effectivePort())
                         .arg(s.user);
    } else {
        const QString ohjelma = mail::findSendmail(asetukset.system.program);
        ok = !ohjelma.isEmpty();
        teksti = ok ? QStringLiteral("Viestit lähetetään koneen postiohjelmalla %1.").arg(ohjelma)
                    : mail::sendmailMissingText();
    }
    if (onnistui)
        *onnistui = ok;
    return teksti;
}
