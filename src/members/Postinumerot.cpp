#include "members/Postinumerot.h"

#include "core/Misc.h"
#include "platform/database.h"

QString cPostinumerot::Postitoimipaikka(const QString &postinumero) const
{
    auto db = db::Database::open(m_polku);
    return NullText(db->scalar(
        QStringLiteral("SELECT Postitoimipaikka FROM Postinumero WHERE Postinumero = ? ORDER BY Postinumero_ID LIMIT 1"),
        {postinumero}));
}

QVector<PostinumeroRivi> cPostinumerot::Postinumerot(const QString &postitoimipaikka) const
{
    auto db = db::Database::open(m_polku);
    db::Statement st(*db,
                     QStringLiteral("SELECT Postinumero_ID, Postinumero, Postitoimipaikka FROM Postinumero "
                                    "WHERE Postitoimipaikka = ? COLLATE FI ORDER BY Postinumero, Postinumero_ID"),
                     {postitoimipaikka});
    QVector<PostinumeroRivi> rivit;
    while (st.next())
        rivit.append({st.value(0).toLongLong(), NullText(st.value(1)), NullText(st.value(2))});
    return rivit;
}
