#include "invoicing/Laskupohja.h"

#include "platform/database.h"

#include <stdexcept>

using laskupohja::Laji;

namespace laskupohja {

int RivienMaara(int laskutyyppi)
{
    switch (laskutyyppi) {
    case Perus: return 4;
    case Perhe: return 11;
    case Ominaisuus: return 4;
    }
    return 0;
}

} // namespace laskupohja

namespace {

const laskupohja::Taulu &pohjaTaulu()
{
    static const laskupohja::Taulu t{"Laskupohjat",
                                     {{"Laskupohja_ID", Laji::Tunniste},
                                      {"Laskupohja_Nimi", Laji::Teksti, 50},
                                      {"LaskunOtsake", Laji::Teksti, 30},
                                      {"Laskutyyppi", Laji::Integer},
                                      {"LaskunPaivamaara", Laji::Integer},
                                      {"LaskunErapaiva", Laji::Integer},
                                      {"TilisiirronTeksti", Laji::Teksti, 80},
                                      {"Jasenmaksu", Laji::Totuus},
                                      {"HenkilokohtainenViite", Laji::Totuus},
                                      {"IlmanViitetta", Laji::Totuus},
                                      {"IlmanLoppusummaa", Laji::Totuus},
                                      {"Lisatietoja", Laji::Muistio},
                                      {"Pankkitili1", Laji::Teksti, 50},
                                      {"KaytaPankkitili1", Laji::Totuus}}};
    return t;
}

// Templates are read by name in Finnish order; equal names in the order of making.
const QString nimijarjestys = QStringLiteral(" ORDER BY Laskupohja_Nimi COLLATE FI, Laskupohja_ID");

} // namespace

cLaskupohja::cLaskupohja(QObject *parent) : cLaskupohjaTietue(pohjaTaulu(), parent) { tyhjenna(); }

cLaskupohja::~cLaskupohja()
{
    vapauta();
    // What could not be saved has been told about; the rows must not try again one by one.
    for (auto &[avain, r] : m_rivit)
        r->asetaMuuttunut(false);
}

void cLaskupohja::uudenArvot()
{
    alkuarvo(4, laskupohja::PaivaTyhja);
    alkuarvo(5, -1);
}

cLaskupohjaRivi &cLaskupohja::rivi(int laskutyyppi, int jarjestys) const
{
    if (jarjestys < 0 || jarjestys >= laskupohja::RivienMaara(laskutyyppi))
        throw std::out_of_range("laskupohjan rivi");
    const std::pair<int, int> avain{laskutyyppi, jarjestys};
    if (const auto loytyi = m_rivit.find(avain); loytyi != m_rivit.end())
        return *loytyi->second;
    std::unique_ptr<cLaskupohjaRivi> r;
    if (ID() != 0) {
        cLaskupohjaRivit rivit;
        if (Yhteys())
            rivit.Lataa(*Yhteys(), ID(), laskutyyppi, jarjestys);
        else
            rivit.Lataa(Tietokanta(), ID(), laskutyyppi, jarjestys);
        if (rivit.Count() > 0)
            r = rivit.Irrota(0);
    }
    if (!r) {
        r = std::make_unique<cLaskupohjaRivi>();
        r->setTietokanta(Tietokanta());
        r->setYhteys(Yhteys());
        r->setLaskupohjaID(ID());
        r->setJarjestys(jarjestys);
        r->setLaskutyyppi(laskutyyppi);
        try {
            r->Save();
        } catch (...) {
            r->asetaMuuttunut(false); // the failure is the caller's to show, once
            throw;
        }
        r->otaKopio(); // a new template's rows are written with it once it has an id
    }
    // A row edited while the template is new makes the template one to save.
    auto *self = const_cast<cLaskupohja *>(this);
    QObject::connect(r.get(), &cLaskupohjaTietue::Changed, self, [self] {
        if (self->ID() == 0)
            self->asetaMuuttunut(true);
    });
    return *m_rivit.emplace(avain, std::move(r)).first->second;
}

bool cLaskupohja::RivejaMuuttunut() const
{
    if (Muuttunut())
        return true;
    for (const auto &[avain, r] : m_rivit)
        if (r->Muuttunut())
            return true;
    return false;
}

template <class F>
void cLaskupohja::rivitPalautuen(F &&tallenna)
{
    std::vector<std::pair<cLaskupohjaRivi *, Tila>> ennen;
    for (auto &[avain, r] : m_rivit)
        ennen.emplace_back(r.get(), r->tila());
    try {
        tallenna();
    } catch (...) {
        for (auto &[r, t] : ennen)
            r->palauta(t);
        throw;
    }
}

void cLaskupohja::Save(bool pakota)
{
    rivitPalautuen([&] {
        if (Muuttunut() || pakota) {
            if (Nimi().isEmpty())
                aseta(1, QStringLiteral(" "));
            cLaskupohjaTietue::Save(true);
            return;
        }
        // Only rows have changed: they are written alone.
        if (ID() == 0)
            return;
        auto d = kanta();
        db::Transaction t(*d);
        for (auto &[avain, r] : m_rivit)
            if (r->Muuttunut() && r->voiTallentaa())
                r->tallennaYhteydella(*d);
        t.commit();
    });
}

// A new template's rows are written with the id it got.
void cLaskupohja::tallennettu(db::Database &d)
{
    for (auto &[avain, r] : m_rivit) {
        const bool uusi = r->LaskupohjaID() != ID();
        if (uusi)
            r->setLaskupohjaID(ID());
        if (uusi || r->Muuttunut())
            r->tallennaYhteydella(d);
    }
}

void cLaskupohja::pudotaRivit()
{
    for (auto &[avain, r] : m_rivit)
        r->asetaMuuttunut(false);
    m_rivit.clear();
}

void cLaskupohja::luovu()
{
    if (RivejaMuuttunut())
        Save();
    pudotaRivit();
}

void cLaskupohja::Delete()
{
    if (ID() != 0) {
        auto d = kanta();
        db::Transaction t(*d);
        d->execute(QStringLiteral("DELETE FROM Laskupohjarivit WHERE Laskupohja_ID = ?"), {qlonglong(ID())});
        d->execute(QStringLiteral("DELETE FROM Laskupohjat WHERE Laskupohja_ID = ?"), {qlonglong(ID())});
        t.commit();
    }
    Uusi();
}

void cLaskupohja::Uusi()
{
    pudotaRivit();
    cLaskupohjaTietue::Uusi();
}

void cLaskupohja::Cancel()
{
    // A new template's rows exist only here: they go with its changes.
    if (ID() == 0)
        pudotaRivit();
    for (auto &[avain, r] : m_rivit)
        r->Cancel();
    cLaskupohjaTietue::Cancel();
}

bool cLaskupohja::siirry(const QString &ehto, const QString &jarjestys)
{
    luovu(); // a new template saved here is where the move starts from
    return lueEnsimmainen(QStringLiteral("SELECT * FROM Laskupohjat") + ehto + QStringLiteral(" ORDER BY ") + jarjestys +
                              QStringLiteral(" LIMIT 1"),
                          ehto.contains(QLatin1Char('?')) ? QVector<QVariant>{qlonglong(ID())} : QVector<QVariant>{});
}

bool cLaskupohja::GetFirst() { return siirry({}, QStringLiteral("Laskupohja_ID")); }
bool cLaskupohja::GetPrevious() { return siirry(QStringLiteral(" WHERE Laskupohja_ID < ?"), QStringLiteral("Laskupohja_ID DESC")); }
bool cLaskupohja::GetNext() { return siirry(QStringLiteral(" WHERE Laskupohja_ID > ?"), QStringLiteral("Laskupohja_ID ASC")); }
bool cLaskupohja::GetLast() { return siirry(QStringLiteral(" WHERE Laskupohja_ID > 0"), QStringLiteral("Laskupohja_ID DESC")); }

// ---- cLaskupohjat ---------------------------------------------------------------------------

cLaskupohjat::cLaskupohjat() = default;
cLaskupohjat::~cLaskupohjat() = default;

void cLaskupohjat::Lataa(const QString &polku, int laskutyyppi)
{
    laskupohja::Kanta d(polku, nullptr);
    lataa(*d, polku, nullptr, laskutyyppi);
}

void cLaskupohjat::Lataa(db::Database &yhteys, int laskutyyppi)
{
    lataa(yhteys, yhteys.path(), &yhteys, laskutyyppi);
}

void cLaskupohjat::lataa(db::Database &d, const QString &polku, db::Database *lainattu, int laskutyyppi)
{
    m_pohjat.clear();
    QString sql = QStringLiteral("SELECT * FROM Laskupohjat");
    db::Params p;
    if (laskutyyppi != -1) {
        sql += QStringLiteral(" WHERE Laskutyyppi = ?");
        p << laskutyyppi;
    }
    db::Statement st(d, sql + nimijarjestys, p);
    while (st.next()) {
        auto pohja = std::make_unique<cLaskupohja>();
        pohja->setTietokanta(polku);
        pohja->setYhteys(lainattu);
        pohja->lueLauseesta(st);
        m_pohjat.push_back(std::move(pohja));
    }
}

cLaskupohja *cLaskupohjat::Item(const QString &avain) const
{
    for (const auto &p : m_pohjat)
        if (QStringLiteral("I") + QString::number(p->ID()) == avain)
            return p.get();
    return nullptr;
}
