#include "invoicing/Laskurivit.h"

#include "platform/arvot.h"

QVector<cInvoiceRow> LaskunRivit(db::Database &db, qint64 jmID)
{
    QVector<cInvoiceRow> rivit;
    db::Statement st(db, QStringLiteral("SELECT jmRPaiva, jmRTeksti, jmRHinta FROM jmRivi WHERE jmRjmID = ? ORDER BY jmRID"), {jmID});
    while (st.next()) {
        const QVariant hinta = st.value(2);
        rivit.append({PaivaTekstina(NullDate(st.value(0))), NullText(st.value(1)),
                      hinta.isValid() && !hinta.isNull() ? NullCurrency(hinta).toString(2) : QString()});
    }
    return rivit;
}
