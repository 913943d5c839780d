#include "email/Laskujenlahetys.h"

#include "core/MainModule.h"
#include "core/Postiasetukset.h"
#include "core/Postisalasana.h"
#include "email/Sahkopostilaskut.h"
#include "invoicing/Laskutettavat.h"
#include "platform/arvot.h"
#include "platform/database.h"

namespace {

// The member's first unsent invoice; 0 when there is none.
qint64 ensimmainenLahettamaton(db::Database &db, qint64 jrID)
{
    return NullLong(db.scalar(QStringLiteral("SELECT jmID FROM jm WHERE jmjrID = ? AND jmEmailed = 0 ORDER BY jmID LIMIT 1"),
                              {jrID}));
}

bool sahkopostilaskutus(db::Database &db, qint64 jrID)
{
    return NullBoolean(db.scalar(QStringLiteral("SELECT jrEmailLasku FROM jr WHERE jrID = ?"), {jrID}));
}

// The members of the name box's choice, each once; a person comes alone and unchecked.
QVector<qint64> jasenet(db::Database &db, const LaskunSaajat &s)
{
    LaskunSaajat valinta = s;
    if (valinta.tunniste == 0)
        valinta.chkEiPerheellisille = false; // "Kaikki" is every member here
    QVector<qint64> idt;
    for (const Laskutettava &l : Laskutettavat(db, valinta))
        if (idt.isEmpty() || idt.constLast() != l.jrID)
            idt.append(l.jrID);
    return idt;
}

// The invoice merged and addressed to its member; nothing when the member is gone.
std::optional<mail::Message> viesti(db::Database &db, const QString &pohja, qint64 jmID)
{
    mail::Message m;
    {
        db::Statement st(db, QStringLiteral("SELECT jr.jrSukunimi, jr.jrEtunimi, jr.jrEmail, jm.jmOtsake FROM jm"
                                            " JOIN jr ON jr.jrID = jm.jmjrID WHERE jm.jmID = ?"),
                         {jmID});
        if (!st.next())
            return std::nullopt;
        m.to = {mail::Address{NullText(st.value(0)) + QLatin1Char(' ') + NullText(st.value(1)), NullText(st.value(2)).trimmed()}};
        m.subject = NullText(st.value(3));
    }
    m.from = Lahettaja();
    m.body = AvoimenLaskunTeksti(db, pohja, jmID);
    return m;
}

} // namespace

int Lahetysvali(qint64 viestejaMinuutissa)
{
    return viestejaMinuutissa > 0 ? int(60000 / viestejaMinuutissa) : 0;
}

QString LahetyksenYhteenveto(int lahetetty, int epaonnistui)
{
    return QStringLiteral("Lasku lähetettiin %1 jäsenelle.\nLaskun lähetys ei onnistunut %2 jäsenelle.\n"
                          "Voit tulostaa lähettämättömät Tulosta painikkeella.")
        .arg(lahetetty)
        .arg(epaonnistui);
}

Lahetystulos LahetaLaskut(const Ajo &ajo, const Laskujenlahetys &l)
{
    db::Database &db = ajo.kanta;
    Lahetystulos tulos;
    const Sahkopostiteksti pohja = LueLaskupohja();
    if (!pohja.onnistui()) {
        tulos.viesti = pohja.viesti;
        return tulos;
    }
    const int vali = Lahetysvali(MainModule::EmailPerMin);
    if (!l.saajat.valittu) {
        tulos.viesti = QStringLiteral("Tarkista henkilö valinta.");
        return tulos;
    }

    const QVector<qint64> idt = jasenet(db, l.saajat);
    if (l.saajat.tunniste > 0) {
        if (idt.isEmpty() || !db.scalar(QStringLiteral("SELECT 1 FROM jr WHERE jrID = ?"), {l.saajat.tunniste}).isValid()) {
            tulos.viesti = QStringLiteral("Virhe jäsentietojen haussa. Käynnistä Vonari uudestaan.");
            return tulos;
        }
        if (ensimmainenLahettamaton(db, idt.first()) == 0) {
            tulos.viesti = QStringLiteral("Jäsenelle ei ole luotu laskua.\n(Tai lasku on jo lähetetty.)");
            return tulos;
        }
        if (!sahkopostilaskutus(db, idt.first())) {
            tulos.viesti = QStringLiteral("Jäsenelle ei ole sallittu sähköpostilaskutusta jäsenrekisterissä.");
            return tulos;
        }
    }

    mail::Settings reitti = l.reitti ? *l.reitti : Lahetysasetukset();
    if (l.vainSmtp && reitti.route != mail::Route::Smtp) {
        reitti.route = mail::Route::Smtp;
        if (!l.reitti)
            reitti.smtp.password = LuePostisalasana(MainModule::SMTPKayttaja, MainModule::SMTP);
    }
    std::unique_ptr<mail::Sender> lahettaja;
    bool odotettu = false;
    try {
        for (qsizetype i = 0; i < idt.size(); ++i) {
            ajo.askel(i, idt.size());
            const qint64 jrID = idt[i];
            const qint64 jmID = ensimmainenLahettamaton(db, jrID);
            if (jmID == 0 || !sahkopostilaskutus(db, jrID))
                continue;
            const std::optional<mail::Message> m = viesti(db, pohja.teksti, jmID);
            if (!m)
                continue;
            // The first message of a press waits one interval; the rest follow without a pause.
            if (!odotettu && vali > 0 && l.odota) {
                l.odota(vali);
                ajo.askel(i, idt.size());
            }
            odotettu = true;
            if (!lahettaja)
                lahettaja = mail::openSender(reitti);
            const bool meni = lahettaja->send(*m).allSent();
            db.execute(QStringLiteral("UPDATE jm SET jmEmailed = ? WHERE jmID = ?"), {meni, jmID});
            ++(meni ? tulos.lahetetty : tulos.epaonnistui);
        }
        ajo.askel(idt.size(), idt.size());
    } catch (const Keskeytetty &) {
        tulos.keskeytetty = true;
    }
    tulos.viesti = LahetyksenYhteenveto(tulos.lahetetty, tulos.epaonnistui);
    if (tulos.keskeytetty)
        tulos.viesti = QStringLiteral("Lähetys keskeytettiin.\n") + tulos.viesti;
    return tulos;
}
