#include "reports/jasen/Tarrat.h"

#include "platform/database.h"

#include <QStringList>

namespace {
QString kentta(int i) { return QStringLiteral("Rivi%1").arg(i); }
} // namespace

void cTarra::setRivi(int i, const QString &teksti)
{
    if (i < 1 || i > 6)
        return;
    if (m_rivit[size_t(i)] != teksti) {
        m_rivit[size_t(i)] = teksti;
        m_muuttunut = true;
    }
}

void cTarra::kanta(const std::function<void(db::Database &)> &tehtava)
{
    if (m_kanta) {
        tehtava(*m_kanta);
        return;
    }
    auto d = db::Database::open(m_polku);
    tehtava(*d);
}

void cTarra::Save()
{
    if (!m_muuttunut && m_id != 0)
        return;
    db::Params p;
    for (int i = 1; i <= 6; ++i)
        p << QVariant(m_rivit[size_t(i)].left(255));
    kanta([&](db::Database &d) {
        if (m_id == 0) {
            d.execute(QStringLiteral("INSERT INTO Tarra (Rivi1, Rivi2, Rivi3, Rivi4, Rivi5, Rivi6) VALUES (?, ?, ?, ?, ?, ?)"), p);
            m_id = d.lastInsertId();
        } else {
            p << m_id;
            d.execute(QStringLiteral("UPDATE Tarra SET Rivi1 = ?, Rivi2 = ?, Rivi3 = ?, Rivi4 = ?, Rivi5 = ?, Rivi6 = ? "
                                     "WHERE Tarra_ID = ?"),
                      p);
        }
    });
    m_muuttunut = false;
}

bool cTarra::ReadById(qint64 id)
{
    bool loytyi = false;
    kanta([&](db::Database &d) {
        db::Statement s(d, QStringLiteral("SELECT * FROM Tarra WHERE Tarra_ID = ?"), {id});
        m_rivit = {};
        loytyi = s.next();
        for (int i = 1; loytyi && i <= 6; ++i)
            m_rivit[size_t(i)] = s.value(kentta(i)).toString();
    });
    m_muuttunut = false;
    m_id = loytyi ? id : 0;
    return loytyi;
}

void cTarra::Delete()
{
    if (m_id != 0)
        kanta([this](db::Database &d) { d.execute(QStringLiteral("DELETE FROM Tarra WHERE Tarra_ID = ?"), {m_id}); });
    m_id = 0;
    m_rivit = {};
    m_muuttunut = false;
}

void cTarrat::Tyhjenna()
{
    if (m_kanta) {
        m_kanta->execute(QStringLiteral("DELETE FROM Tarra"));
        return;
    }
    auto d = db::Database::open(m_polku);
    d->execute(QStringLiteral("DELETE FROM Tarra"));
}
