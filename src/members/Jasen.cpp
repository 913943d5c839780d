#include "members/Jasen.h"

#include "core/Asetukset.h"
#include "core/MainModule.h"
#include "platform/arvot.h"
#include "core/Schema.h"
#include "invoicing/Viite.h"
#include "members/JasenMaksut.h"

#include <QDate>

namespace {

const std::array<const char *, YhteystietoMaara> Kentat = {
    "jrJasennumero", "jrSukunimi",     "jrEtunimi",  "jrOsoite",     "jrPostinumero", "jrPostitoimipaikka",
    "jrPuhelin",     "jrMatkapuhelin", "jrEmail",    "jrViitenumero", "jrTitteli",    "jrSyntyma",
    "jrLiittyma",    "jrLisatieto2",   "jrLisatieto1", "jrKotipaikka", "jrMaa",        "jrYritys"};

QVariant tekstiTaiNull(const QString &t) { return t.isEmpty() ? QVariant() : QVariant(t); }

} // namespace

QString YhteystietoKentta(int i) { return QString::fromLatin1(Kentat.at(i)); }

int YhteystietoLeveys(int i) { return Schema::leveys(QStringLiteral("jr"), YhteystietoKentta(i)); }

JasenLomake LueLomake(const db::Recordset &rs)
{
    JasenLomake l;
    for (int i = 0; i < YhteystietoMaara; ++i) {
        const QVariant v = rs.value(YhteystietoKentta(i));
        l.tYhteystiedot[i] = OnPaivaKentta(i) ? PaivaTekstina(NullDate(v)) : NullText(v);
    }
    l.chkJasenmaksu = NullBoolean(rs.value(QStringLiteral("jrJasenmaksu")));
    l.chkEmailLasku = NullBoolean(rs.value(QStringLiteral("jrEmailLasku")));
    l.chkPerhLaskutettava = NullBoolean(rs.value(QStringLiteral("jrPerheenLaskutettava")));
    l.tMuistio = NullText(rs.value(QStringLiteral("jrMuistio")));
    return l;
}

void KirjoitaLomake(db::Recordset &rs, const JasenLomake &l, const JasenLomake &naytetty)
{
    // A new row takes everything; an existing one only what the user changed, so that what
    // another path wrote to the row meanwhile (a payment, a family's address) is not undone.
    const bool kaikki = rs.editMode() == db::Recordset::EditMode::AddNew;
    for (int i = 0; i < YhteystietoMaara; ++i) {
        const QString &t = l.tYhteystiedot[i];
        if (kaikki || t != naytetty.tYhteystiedot[i])
            rs.setValue(YhteystietoKentta(i), OnPaivaKentta(i) ? DbPaiva(ParsePaiva(t)) : tekstiTaiNull(t));
    }
    const auto merkki = [&](const char *kentta, bool arvo, bool ennen) {
        if (kaikki || arvo != ennen)
            rs.setValue(QString::fromLatin1(kentta), int(arvo));
    };
    merkki("jrJasenmaksu", l.chkJasenmaksu, naytetty.chkJasenmaksu);
    merkki("jrEmailLasku", l.chkEmailLasku, naytetty.chkEmailLasku);
    merkki("jrPerheenLaskutettava", l.chkPerhLaskutettava, naytetty.chkPerhLaskutettava);
    if (kaikki || l.tMuistio != naytetty.tMuistio)
        rs.setValue(QStringLiteral("jrMuistio"), tekstiTaiNull(l.tMuistio));
    // The numeric twin follows a postal code typed, and stays as it is for one left alone.
    if (l.tYhteystiedot[iPostinumero] != naytetty.tYhteystiedot[iPostinumero])
        rs.setValue(QStringLiteral("jrPostinumeroNumero"), PostinumeroNumeroksi(l.tYhteystiedot[iPostinumero]));
}

qint64 PostinumeroNumeroksi(const QString &postinumero)
{
    if (!OnNumeerinen(postinumero))
        return 0;
    const double arvo = NumeroArvo(postinumero);
    // The column is a Long; a number beyond it cannot be a postal code anyway.
    if (arvo < -2147483648.0 || arvo > 2147483647.0)
        return 0;
    return qRound64(arvo);
}

bool JasennumeroVarattu(db::Database &db, const QString &numero, qint64 omaId)
{
    if (numero.isEmpty())
        return false;
    return db.scalar(QStringLiteral("SELECT 1 FROM jr WHERE jrJasennumero = ? COLLATE NOCASE AND jrID <> ? LIMIT 1"), {numero, omaId}).isValid();
}

QString JasennumeroVarattuViesti(const QString &numero)
{
    return QStringLiteral("Jäsennumero #") + numero + QStringLiteral(" on varattu jo toiselle jäsenelle.");
}

Tallennus TallennaRivi(db::Database &db, db::Recordset &rs, const JasenLomake &lomake, const JasenLomake &naytetty)
{
    KirjoitaLomake(rs, lomake, naytetty);
    const qint64 id = NullLong(rs.value(QStringLiteral("jrID")));
    if (JasennumeroVarattu(db, lomake.tYhteystiedot[iJasennumero], id)) {
        rs.setValue(QStringLiteral("jrJasennumero"), QVariant());
        return Tallennus::NumeroVarattu;
    }
    rs.update();
    return Tallennus::Tallennettu;
}

qint64 EnsimmainenVapaaJasennumero(db::Database &db, qint64 alkaen)
{
    // Mostly the start is free, and the index says so at once.
    if (!db.scalar(QStringLiteral("SELECT 1 FROM jr WHERE jrJasennumero = ?"), {QString::number(alkaen)}).isValid())
        return alkaen;
    // Else the first free number lies just above a taken one: one pass over the numbers gives
    // the candidates, and each is looked up by the index.
    return NullLong(db.scalar(QStringLiteral(
        "SELECT MIN(c) FROM (SELECT ?1 AS c UNION "
        "  SELECT CAST(jrJasennumero AS INTEGER) + 1 FROM jr "
        "  WHERE CAST(jrJasennumero AS INTEGER) >= ?1 AND CAST(CAST(jrJasennumero AS INTEGER) AS TEXT) = jrJasennumero) "
        "WHERE NOT EXISTS (SELECT 1 FROM jr WHERE jrJasennumero = CAST(c AS TEXT))"),
        {alkaen}), alkaen);
}

QString AnnaJasennumero(db::Database &db)
{
    // A number typed by hand or brought in by an import may already hold the counter's place:
    // the next free one is given instead, so an automatic number is never refused on saving.
    const qint64 numero = EnsimmainenVapaaJasennumero(db, MainModule::Jasennro);
    // Memory first: should the write fail, the same number is still not given twice. A run that
    // rolls back takes the number back.
    const long vanha = MainModule::Jasennro;
    MainModule::Jasennro = numero + 1;
    db.perumisella([vanha] { MainModule::Jasennro = vanha; });
    KantaStore(db).writeString(QStringLiteral("Jasennro"), QString::number(MainModule::Jasennro));
    return QString::number(numero);
}

JasenLomake KopioitavatTiedot(db::Database &db, qint64 jrId)
{
    JasenLomake l;
    db::Statement st(db,
                     QStringLiteral("SELECT jrSukunimi, jrEtunimi, jrOsoite, jrPostinumero, jrPostitoimipaikka, jrPuhelin, "
                                    "jrMatkapuhelin, jrEmail FROM jr WHERE jrID = ?"),
                     {jrId});
    if (st.next())
        for (int i = iSukunimi; i <= iEmail; ++i)
            l.tYhteystiedot[i] = NullText(st.value(i - iSukunimi));
    return l;
}

void PoistaJasen(db::Database &db, qint64 jrId)
{
    db::Transaction tx(db);
    db.execute(QStringLiteral("DELETE FROM jr WHERE jrID = ?"), {jrId});
    db.execute(QStringLiteral("DELETE FROM pt WHERE ptjrID = ?"), {jrId});
    tx.commit();
}

int MaksamattomienMaara(db::Database &db)
{
    return int(NullLong(db.scalar(QStringLiteral("SELECT COUNT(*) FROM jr WHERE ") + JasenmaksuMaksamatta)));
}

int PoistaMaksamattomat(db::Database &db)
{
    db::Transaction tx(db);
    const int n = db.execute(QStringLiteral("DELETE FROM jr WHERE ") + JasenmaksuMaksamatta);
    tx.commit();
    return n;
}

int JasenMaara(db::Database &db, qint64 piId)
{
    if (piId <= 0)
        return int(NullLong(db.scalar(QStringLiteral("SELECT COUNT(*) FROM jr"))));
    return int(NullLong(db.scalar(
        QStringLiteral("SELECT COUNT(DISTINCT jrID) FROM jr, pt WHERE ptpiID = ? AND jrID = ptjrID"), {piId})));
}

QString YhteystiedotLeikepoydalle(const JasenLomake &l)
{
    const auto &t = l.tYhteystiedot;
    return t[iEtunimi] + QLatin1Char(' ') + t[iSukunimi] + QLatin1Char('\n') + t[iOsoite] + QLatin1Char('\n')
        + t[iPostinumero] + QLatin1Char(' ') + t[iPostitoimipaikka];
}

Liimaus LueLiimaus(const QString &teksti)
{
    QString t = teksti;
    // A line copied from a spreadsheet or an editor ends in a line break that is no part of it.
    while (t.endsWith(QLatin1Char('\n')) || t.endsWith(QLatin1Char('\r')))
        t.chop(1);
    Liimaus l;
    const QStringList osat = t.split(QLatin1Char(';'));
    if (osat.size() < 2)
        return l;
    l.osat = osat.mid(0, iLiittyma + 1);
    l.jasenmaksu = osat.size() > 13 && osat[13] == QLatin1String("1");
    l.emailLasku = osat.size() > 14 && osat[14] == QLatin1String("1");
    return l;
}

QVector<Postinumerovirhe> TarkistaPostinumerot(db::Database &db)
{
    QVector<Postinumerovirhe> virheet;
    db::Statement st(db, QStringLiteral("SELECT jrPostinumero, jrJasennumero, jrSukunimi, jrEtunimi FROM jr ORDER BY jrID"));
    while (st.next()) {
        const QVariant postinumero = st.value(0);
        if (postinumero.isValid() && !OnNumeerinen(postinumero.toString()))
            virheet.append({NullText(st.value(1)), NullText(st.value(2)), NullText(st.value(3))});
    }
    return virheet;
}

QString PostinumeroOhje()
{
    return QStringLiteral("Vonarin raporttien postinumerorajaus vaatii, että postinumerokenttä\n"
                          "on joko tyhjä tai että se sisältää vain numeroita.\n"
                          "\n"
                          "Tämä toiminto tarkistaa, että postinumerokenttä on joko\n"
                          "tyhjä tai että siihen on syötetty vain numeroita.\n"
                          "\n"
                          "Ohjelma ilmoittaa jäsenen numeron ja nimen niille jäsenille, joiden\n"
                          "postinumero on syytä tarkistaa.");
}

QString PostinumerovirheViesti(const Postinumerovirhe &v)
{
    return QStringLiteral("Tarkista jäsen: ") + v.jasennumero + QLatin1Char('/') + v.sukunimi + QLatin1Char(' ') + v.etunimi;
}

ViitetarkisteTulos LisaaViitetarkiste(const QString &viite)
{
    if (viite.isEmpty())
        return {std::nullopt, QStringLiteral("Viitetarkistetta ei voi lisätä 'tyhjään' - kirjoita ensin numero.")};
    if (viite.size() >= 20)
        return {std::nullopt, QStringLiteral("Viitenumero voi olla korkeintaan 20 numeroa pitkä.")};
    const QString numero = viite.trimmed();
    return {numero + LaskeViitetarkiste(numero).trimmed(), {}};
}

PaivanMuotoilu MuotoilePaiva(const QString &teksti)
{
    if (teksti.isEmpty())
        return {};
    const QDate d = ParsePaiva(teksti);
    if (!d.isValid())
        return {QString(), true};
    return {PaivaTekstina(d), false};
}

QString SiirraPaivaa(const QString &teksti, int paivia, const QDate &tanaan)
{
    const QDate d = ParsePaiva(teksti);
    return PaivaTekstina(d.isValid() ? d.addDays(paivia) : tanaan);
}
