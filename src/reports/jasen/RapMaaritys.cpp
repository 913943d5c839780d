#include "reports/jasen/RapMaaritys.h"

#include "platform/database.h"
#include "reports/RaporttiVirhe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int Versio = 1;

// A fault in a stored text; fromRapDef turns it into its sentence.
struct Lukuvirhe {
    QString syy;
};

QString tekstiKohta(const QJsonObject &o, const QString &avain)
{
    const QJsonValue v = o.value(avain);
    if (v.isUndefined() || v.isNull())
        return {};
    if (!v.isString())
        throw Lukuvirhe{u"kohta \"%1\" ei ole teksti"_s.arg(avain)};
    return v.toString();
}

RapSarake sarake(const QJsonValue &v)
{
    if (!v.isObject())
        throw Lukuvirhe{u"sarake ei ole sarakkeen kuvaus"_s};
    const QJsonObject o = v.toObject();
    RapSarake s;
    s.fieldName = tekstiKohta(o, u"kentta"_s);
    s.Header = tekstiKohta(o, u"otsake"_s);
    const QJsonValue leveys = o.value(u"leveys"_s);
    if (!leveys.isUndefined()) {
        if (!leveys.isDouble() || !std::isfinite(leveys.toDouble()))
            throw Lukuvirhe{u"sarakkeen leveys ei ole luku"_s};
        s.Width = leveys.toDouble();
    }
    return s;
}

RepSettings lue(const QString &teksti)
{
    const QJsonDocument doc = QJsonDocument::fromJson(teksti.toUtf8());
    if (doc.isNull() || !doc.isObject())
        throw Lukuvirhe{u"teksti ei ole raporttipohja"_s};
    const QJsonObject o = doc.object();
    const QJsonValue versio = o.value(u"versio"_s);
    if (!versio.isDouble() || versio.toDouble() != std::floor(versio.toDouble()) || versio.toDouble() < 1)
        throw Lukuvirhe{u"teksti ei ole raporttipohja"_s};
    if (versio.toDouble() > Versio)
        throw Lukuvirhe{u"pohja on tehty ohjelman uudemmalla versiolla"_s};

    RepSettings r;
    r.Nimi = tekstiKohta(o, u"nimi"_s);
    r.Otsikko = tekstiKohta(o, u"otsikko"_s);
    const QString suunta = tekstiKohta(o, u"suunta"_s);
    if (suunta == u"vaaka"_s)
        r.Orientation = RepSettings::Vaakaan;
    else if (!suunta.isEmpty() && suunta != u"pysty"_s)
        throw Lukuvirhe{u"suunta \"%1\" on tuntematon"_s.arg(suunta)};
    const QJsonValue sarakkeet = o.value(u"sarakkeet"_s);
    if (!sarakkeet.isUndefined() && !sarakkeet.isArray())
        throw Lukuvirhe{u"sarakkeiden luettelo puuttuu"_s};
    for (const QJsonValue &s : sarakkeet.toArray())
        r.Sarakkeet.append(sarake(s));
    return r;
}

} // namespace

const QVector<RaportinKentta> &RaportinKentat()
{
    static const QVector<RaportinKentta> kentat = {
        {u"Sukunimi"_s, u"jrSukunimi"_s, u"jr"_s},
        {u"Etunimi"_s, u"jrEtunimi"_s, u"jr"_s},
        {u"Osoite"_s, u"jrOsoite"_s, u"jr"_s},
        {u"Postinumero"_s, u"jrPostinumero"_s, u"jr"_s},
        {u"Postitoimipaikka"_s, u"jrPostitoimipaikka"_s, u"jr"_s},
        {u"Puhelin"_s, u"jrPuhelin"_s, u"jr"_s},
        {u"Matkapuhelin"_s, u"jrMatkapuhelin"_s, u"jr"_s},
        {u"Jäsenmaksu OK"_s, u"jrJasenmaksu"_s, u"jr"_s},
        {u"Jäsennumero"_s, u"jrJasennumero"_s, u"jr"_s},
        {u"Email"_s, u"jrEmail"_s, u"jr"_s},
        {u"Viitenumero"_s, u"jrViitenumero"_s, u"jr"_s},
        {u"Titteli"_s, u"jrTitteli"_s, u"jr"_s},
        {u"Syntymäaika"_s, u"jrSyntyma"_s, u"jr"_s},
        {u"Liittymisaika"_s, u"jrLiittyma"_s, u"jr"_s},
        {u"Email laskutus"_s, u"jrEmailLasku"_s, u"jr"_s},
        {u"Lisätieto 1"_s, u"jrLisatieto1"_s, u"jr"_s},
        {u"Lisätieto 2"_s, u"jrLisatieto2"_s, u"jr"_s},
        {u"Kotipaikka"_s, u"jrKotipaikka"_s, u"jr"_s},
        {u"Maa"_s, u"jrMaa"_s, u"jr"_s},
        {u"Ominaisuus"_s, u"piNimi"_s, u"pi"_s},
        {u"Om. päivä"_s, u"ptValDate"_s, u"pt"_s},
        {u"Om. luku"_s, u"ptValLong"_s, u"pt"_s},
        {u"Om. arvo"_s, u"ptValCurrency"_s, u"pt"_s},
        {u"Om. muistio"_s, u"ptValMemo"_s, u"pt"_s},
    };
    return kentat;
}

const RaportinKentta *EtsiRaportinKentta(const QString &kentta)
{
    for (const RaportinKentta &k : RaportinKentat())
        if (k.kentta.compare(kentta.trimmed(), Qt::CaseInsensitive) == 0)
            return &k;
    return nullptr;
}

const RaportinKentta *SarakkeenKentta(const RapSarake &s)
{
    if (s.fieldName.trimmed().isEmpty())
        return nullptr;
    const RaportinKentta *k = EtsiRaportinKentta(s.fieldName);
    if (!k)
        throw RaporttiVirhe(u"Raportin sarakkeen kenttää \"%1\" ei voi tulostaa."_s.arg(s.fieldName));
    return k;
}

QString RepSettings::RapDef() const
{
    QJsonArray sarakkeet;
    for (const RapSarake &s : Sarakkeet)
        sarakkeet.append(QJsonObject{{u"kentta"_s, s.fieldName}, {u"otsake"_s, s.Header}, {u"leveys"_s, s.Width}});
    const QJsonObject o{{u"versio"_s, Versio},
                        {u"nimi"_s, Nimi},
                        {u"otsikko"_s, Otsikko},
                        {u"suunta"_s, Orientation == Vaakaan ? u"vaaka"_s : u"pysty"_s},
                        {u"sarakkeet"_s, sarakkeet}};
    return QString::fromUtf8(QJsonDocument(o).toJson(QJsonDocument::Compact));
}

RepSettings RepSettings::fromRapDef(const QString &teksti, QString *virhe)
{
    if (virhe)
        virhe->clear();
    if (teksti.trimmed().isEmpty())
        return {};
    try {
        return lue(teksti);
    } catch (const Lukuvirhe &e) {
        if (virhe)
            *virhe = u"Raporttipohjaa ei voi lukea: %1."_s.arg(e.syy);
        return {};
    }
}

QString RepSettings::Otsikkoteksti() const
{
    return Otsikko.trimmed().isEmpty() ? Nimi : Otsikko;
}

QString RepSettings::Kenttalista() const
{
    QStringList kentat;
    for (const RapSarake &s : Sarakkeet)
        if (const RaportinKentta *k = SarakkeenKentta(s))
            kentat << k->kentta;
    return kentat.join(u", "_s);
}

void cRapMaaritys::Alusta()
{
    m_id = 0;
    m_lukuvirhe.clear();
    oRepSettings = RepSettings();
}

bool cRapMaaritys::ReadById(qint64 id)
{
    db::Statement s(m_db, u"SELECT rpDef FROM rp WHERE rpID = ?"_s, {id});
    if (!s.next()) {
        Alusta();
        return false;
    }
    m_id = id;
    oRepSettings = RepSettings::fromRapDef(s.value(0).toString(), &m_lukuvirhe);
    return true;
}

void cRapMaaritys::Save()
{
    const QString teksti = oRepSettings.RapDef();
    if (m_id == 0 || m_db.execute(u"UPDATE rp SET rpDef = ? WHERE rpID = ?"_s, {teksti, m_id}) == 0) {
        m_db.execute(u"INSERT INTO rp (rpDef) VALUES (?)"_s, {teksti});
        m_id = m_db.lastInsertId();
    }
    m_lukuvirhe.clear();
}

void cRapMaaritys::Delete()
{
    if (m_id != 0)
        m_db.execute(u"DELETE FROM rp WHERE rpID = ?"_s, {m_id});
    Alusta();
}

QVector<MuokattavaRaportti> MuokattavatRaportit(db::Database &db)
{
    QVector<MuokattavaRaportti> rivit;
    db::Statement s(db, u"SELECT rpID, rpDef FROM rp ORDER BY rpID"_s);
    while (s.next()) {
        MuokattavaRaportti r{s.value(0).toLongLong(), RepSettings::fromRapDef(s.value(1).toString()).Nimi.trimmed()};
        if (r.nimi.isEmpty())
            r.nimi = u"Raportti %1"_s.arg(rivit.size() + 1);
        rivit.append(r);
    }
    return rivit;
}
