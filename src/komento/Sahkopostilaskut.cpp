// sahkopostilaskut [--esikatselu] [--kenelle kaikki|ominaisuus:NIMI|jasen:JRID]
//                  [--smtp PALVELIN[:PORTTI]] [--suojaus ei|starttls|smtps] [--kayttaja NIMI]
// With --esikatselu the e-mail of every open invoice as the preview shows them, one after
// another, each followed by a line holding only a form feed but the last. Without it the open
// batch is sent as the window's "Sähköposti" sends it, by the club's mail settings or, for this
// run, by SMTP to the server given (the password from VONARI_SMTP_SALASANA).
#include "email/Laskujenlahetys.h"
#include "email/Sahkopostilaskut.h"
#include "komento/Komento.h"
#include "komento/Saajat.h"

#include <QTextStream>
#include <QThread>

namespace komento {

namespace {

const QString kKaytto = QStringLiteral(
    "Käyttö: vonari-komento TIETOKANTA sahkopostilaskut [--esikatselu] [--kenelle kaikki|ominaisuus:NIMI|jasen:JRID]"
    " [--smtp PALVELIN[:PORTTI]] [--suojaus ei|starttls|smtps] [--kayttaja NIMI]");

int esikatselu(Yhteys &y)
{
    const Sahkopostiteksti pohja = LueLaskupohja();
    if (!pohja.onnistui())
        return Virhe(pohja.viesti, Epaonnistui);
    QTextStream ulos(stdout);
    bool ensimmainen = true;
    for (const qint64 jmID : AvoimetLaskut(y.ajo.kanta)) {
        QString teksti = AvoimenLaskunTeksti(y.ajo.kanta, pohja.teksti, jmID).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        if (!teksti.endsWith(QLatin1Char('\n')))
            teksti += QLatin1Char('\n');
        if (!ensimmainen)
            ulos << "\f\n";
        ulos << teksti;
        ensimmainen = false;
    }
    ulos.flush();
    return Onnistui;
}

// The SMTP server of the options; an error text when they do not make one.
std::optional<mail::Settings> palvelin(const Valitsimet &v, QString *virhe)
{
    mail::Settings a;
    a.route = mail::Route::Smtp;
    const QString smtp = v.arvo(QStringLiteral("--smtp")).trimmed();
    const qsizetype kaksoispiste = smtp.lastIndexOf(QLatin1Char(':'));
    a.smtp.host = kaksoispiste < 0 ? smtp : smtp.left(kaksoispiste);
    if (kaksoispiste >= 0) {
        bool ok = false;
        a.smtp.port = smtp.mid(kaksoispiste + 1).toInt(&ok);
        if (!ok || a.smtp.port < 1 || a.smtp.port > 65535) {
            *virhe = QStringLiteral("Portti %1 ei kelpaa: anna numero 1-65535.").arg(smtp.mid(kaksoispiste + 1));
            return std::nullopt;
        }
    }
    if (a.smtp.host.isEmpty()) {
        *virhe = QStringLiteral("--smtp tarvitsee palvelimen nimen.");
        return std::nullopt;
    }
    const QString suojaus = v.onko(QStringLiteral("--suojaus")) ? v.arvo(QStringLiteral("--suojaus")) : QStringLiteral("ei");
    if (suojaus == u"ei")
        a.smtp.security = mail::Security::None;
    else if (suojaus == u"starttls")
        a.smtp.security = mail::Security::StartTls;
    else if (suojaus == u"smtps")
        a.smtp.security = mail::Security::Smtps;
    else {
        *virhe = QStringLiteral("--suojaus on ei, starttls tai smtps.");
        return std::nullopt;
    }
    a.smtp.user = v.arvo(QStringLiteral("--kayttaja"));
    if (!a.smtp.user.isEmpty())
        a.smtp.password = qEnvironmentVariable("VONARI_SMTP_SALASANA");
    return a;
}

} // namespace

int Sahkopostilaskut(Yhteys &y)
{
    const QString esikatselu_ = QStringLiteral("--esikatselu");
    Valitsimet v({QStringLiteral("--kenelle"), QStringLiteral("--smtp"), QStringLiteral("--suojaus"), QStringLiteral("--kayttaja")},
                 {esikatselu_});
    QString virhe;
    if (!v.lue(y.argumentit, &virhe))
        return Virhe(virhe, VaaraKaytto);
    if (!v.paikalliset.isEmpty())
        return Virhe(kKaytto, VaaraKaytto);
    if (v.onko(esikatselu_))
        return esikatselu(y);
    if (!v.onko(QStringLiteral("--smtp")) && (v.onko(QStringLiteral("--suojaus")) || v.onko(QStringLiteral("--kayttaja"))))
        return Virhe(QStringLiteral("--suojaus ja --kayttaja käyvät vain --smtp:n kanssa."), VaaraKaytto);

    Laskujenlahetys l;
    int tila = VaaraKaytto;
    const std::optional<LaskunSaajat> kenelle = LueSaajat(y.ajo.kanta, v, &virhe, &tila);
    if (!kenelle)
        return Virhe(virhe, tila);
    l.saajat = *kenelle;
    if (v.onko(QStringLiteral("--smtp"))) {
        l.reitti = palvelin(v, &virhe);
        if (!l.reitti)
            return Virhe(virhe, VaaraKaytto);
    }
    l.odota = [](int ms) { QThread::msleep(ulong(ms)); };
    const Lahetystulos tulos = LahetaLaskut(y.ajo, l);
    if (tulos.lahetetty + tulos.epaonnistui == 0 && !tulos.viesti.startsWith(QStringLiteral("Lasku lähetettiin")))
        return Virhe(tulos.viesti, Epaonnistui);
    QTextStream(stdout) << tulos.viesti << Qt::endl;
    return tulos.epaonnistui == 0 && !tulos.keskeytetty ? Onnistui : Epaonnistui;
}

} // namespace komento
