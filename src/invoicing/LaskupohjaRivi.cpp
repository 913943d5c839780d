#include "invoicing/LaskupohjaRivi.h"

#include "platform/database.h"

using laskupohja::Laji;

namespace {

const laskupohja::Taulu &riviTaulu()
{
    static const laskupohja::Taulu t{"Laskupohjarivit",
                                     {{"Laskupohjarivi_ID", Laji::Tunniste},
                                      {"Laskupohja_ID", Laji::Long},
                                      {"Jarjestys", Laji::Integer},
                                      {"Laskutyyppi", Laji::Integer},
                                      {"Paalla", Laji::Totuus},
                                      {"Aiheteksti", Laji::Teksti, 80},
                                      {"Hinta", Laji::Raha},
                                      {"PerhePaalla", Laji::Totuus},
                                      {"PerheAhinta", Laji::Raha},
                                      {"PerheAiheteksti", Laji::Teksti, 80},
                                      {"PerheNimet", Laji::Totuus},
                                      {"PerheNollat", Laji::Totuus},
                                      {"OmPiId", Laji::Long},
                                      {"OmLkm", Laji::Totuus},
                                      {"OmAhinta", Laji::Raha},
                                      {"OmHinta", Laji::Totuus},
                                      {"OmLkmMaara", Laji::Liukuluku},
                                      {"OmMinimi", Laji::Raha},
                                      {"OmNollat", Laji::Totuus},
                                      {"OmAiheteksti", Laji::Teksti, 80}}};
    return t;
}

} // namespace

cLaskupohjaRivi::cLaskupohjaRivi(QObject *parent) : cLaskupohjaTietue(riviTaulu(), parent) {}

cLaskupohjaRivi::~cLaskupohjaRivi() { vapauta(); }

// ---- cLaskupohjaRivit -----------------------------------------------------------------------

cLaskupohjaRivit::cLaskupohjaRivit() = default;
cLaskupohjaRivit::~cLaskupohjaRivit() = default;

void cLaskupohjaRivit::Lataa(const QString &polku, qint64 laskupohjaId, int laskutyyppi, int jarjestys)
{
    laskupohja::Kanta d(polku, nullptr);
    lataa(*d, polku, nullptr, laskupohjaId, laskutyyppi, jarjestys);
}

void cLaskupohjaRivit::Lataa(db::Database &yhteys, qint64 laskupohjaId, int laskutyyppi, int jarjestys)
{
    lataa(yhteys, yhteys.path(), &yhteys, laskupohjaId, laskutyyppi, jarjestys);
}

void cLaskupohjaRivit::lataa(db::Database &d, const QString &polku, db::Database *lainattu, qint64 laskupohjaId,
                             int laskutyyppi, int jarjestys)
{
    m_rivit.clear();
    QString sql = QStringLiteral("SELECT * FROM Laskupohjarivit WHERE Laskupohja_ID = ?");
    db::Params p{qlonglong(laskupohjaId)};
    if (laskutyyppi != -1) {
        sql += QStringLiteral(" AND Laskutyyppi = ?");
        p << laskutyyppi;
    }
    if (jarjestys != -1) {
        sql += QStringLiteral(" AND Jarjestys = ?");
        p << jarjestys;
    }
    sql += QStringLiteral(" ORDER BY Laskupohjarivi_ID");
    db::Statement st(d, sql, p);
    while (st.next()) {
        auto r = std::make_unique<cLaskupohjaRivi>();
        r->setTietokanta(polku);
        r->setYhteys(lainattu);
        r->lueLauseesta(st);
        m_rivit.push_back(std::move(r));
    }
}

cLaskupohjaRivi *cLaskupohjaRivit::Item(const QString &avain) const
{
    for (const auto &r : m_rivit)
        if (QStringLiteral("I") + QString::number(r->ID()) == avain)
            return r.get();
    return nullptr;
}

std::unique_ptr<cLaskupohjaRivi> cLaskupohjaRivit::Irrota(int indeksi)
{
    auto r = std::move(m_rivit.at(size_t(indeksi)));
    m_rivit.erase(m_rivit.begin() + indeksi);
    return r;
}
