#include "platform/kello.h"

#include <atomic>

namespace kello {

namespace {
std::atomic<qint64> asetettu{0}; // Julian day of the set date; 0 when the system's date holds
}

QDate tanaan()
{
    const qint64 jd = asetettu.load();
    return jd ? QDate::fromJulianDay(jd) : QDate::currentDate();
}

QDateTime nyt()
{
    const QDateTime jarjestelma = QDateTime::currentDateTime();
    const qint64 jd = asetettu.load();
    return jd ? QDateTime(QDate::fromJulianDay(jd), jarjestelma.time()) : jarjestelma;
}

void asetaTanaan(const QDate &paiva)
{
    asetettu.store(paiva.isValid() ? paiva.toJulianDay() : 0);
}

} // namespace kello
