#include "members/JasenMaksut.h"

#include "platform/arvot.h"

namespace {

QString kyllaEi(const QVariant &v) { return NullBoolean(v) ? QStringLiteral("Kyllä") : QStringLiteral("Ei"); }

QString kyllaEiViiva(const QVariant &v) { return v.isValid() ? kyllaEi(v) : QStringLiteral("-"); }

QString rahana(const QVariant &v) { return v.isValid() ? NullCurrency(v).toString() : QString(); }

} // namespace

QVector<LaskuRivi> JasenenLaskut(db::Database &db, qint64 jrId)
{
    QVector<LaskuRivi> rivit;
    db::Statement st(db,
                     QStringLiteral("SELECT jmhID, jmhjmHinta, jmhjmTeksti FROM jmhist WHERE jmhjmjrID = ? "
                                    "ORDER BY jmhjmLaskupaiva, jmhID"),
                     {jrId});
    while (st.next())
        rivit.append({st.value(0).toLongLong(), rahana(st.value(1)) + QStringLiteral(" - ") + NullText(st.value(2))});
    return rivit;
}

LaskunTiedot LueLasku(db::Database &db, qint64 jmhID)
{
    LaskunTiedot t;
    db::Statement st(db,
                     QStringLiteral("SELECT jmhjmID, jmhjmOtsake, jmhjmErapaiva, jmhjmLaskupaiva, jmhjmLaskunumero, "
                                    "jmhjmViitenumero, jmhjmHinta, jmhjmTeksti, jmhjmMaksettu, jmhjmPerhe, jmhjmOmin, "
                                    "jmhjmJasMak FROM jmhist WHERE jmhID = ?"),
                     {jmhID});
    if (!st.next())
        return t;
    t.jmhjmID = NullText(st.value(0));
    t.otsake = NullText(st.value(1));
    t.erapaiva = PaivaTekstina(NullDate(st.value(2)));
    t.laskupaiva = PaivaTekstina(NullDate(st.value(3)));
    t.laskunumero = NullText(st.value(4));
    t.viitenumero = NullText(st.value(5));
    t.hinta = rahana(st.value(6));
    t.teksti = NullText(st.value(7));
    t.maksettu = kyllaEi(st.value(8));
    t.perhemaksu = kyllaEiViiva(st.value(9));
    t.ominaisuusmaksu = kyllaEiViiva(st.value(10));
    t.jasenmaksu = kyllaEiViiva(st.value(11));
    return t;
}

MaksetuksiTulos MerkitseLaskuMaksetuksi(db::Database &db, qint64 jmhjmID)
{
    MaksetuksiTulos tulos;
    db::Statement st(db, QStringLiteral("SELECT jmhjmjrID, jmhjmPerhe, jmhjmJasMak, jmhID FROM jmhist WHERE jmhjmID = ? ORDER BY jmhID LIMIT 1"),
                     {jmhjmID});
    if (!st.next())
        return tulos;
    const QVariant maksaja = st.value(0);
    const bool perhe = NullBoolean(st.value(1));
    tulos.loytyi = true;
    tulos.jasenmaksu = NullBoolean(st.value(2));
    const QVariant jmhID = st.value(3);
    st.next();

    db::Transaction tx(db);
    db.execute(QStringLiteral("UPDATE jr SET jrJasenmaksu = 1 WHERE jrID = ?"), {maksaja});
    if (perhe)
        db.execute(QStringLiteral("UPDATE jr SET jrJasenmaksu = 1 WHERE jrID IN (SELECT jrPSubID FROM jrPerhe WHERE jrPMID = ?)"),
                   {maksaja});
    db.execute(QStringLiteral("UPDATE jmhist SET jmhjmMaksettu = 1 WHERE jmhID = ?"), {jmhID});
    db.execute(QStringLiteral("UPDATE jmRivi SET jmRMaksettu = 1 WHERE jmRjmID = ?"), {jmhjmID});
    tx.commit();
    return tulos;
}

QString LaskuaEiLoydyViesti(const QString &viitenumero)
{
    return QStringLiteral("Laskua viitenumerolla: ") + viitenumero.trimmed() + QStringLiteral(" ei löydy.");
}
