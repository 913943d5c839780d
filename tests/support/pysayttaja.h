// A progress sink for tests: records every step and asks to stop at the chosen call.
#pragma once

#include "platform/ajo.h"

#include <QList>
#include <QPair>

class Pysayttaja : public Edistyminen {
public:
    // Stops at the `kutsussa`th question (1 = the first); 0 never stops.
    explicit Pysayttaja(int kutsussa = 0) : m_raja(kutsussa) {}
    void vaihe(qint64 tehty, qint64 yhteensa) override { vaiheet.append({tehty, yhteensa}); }
    bool keskeytetaanko() override { return m_raja > 0 && ++m_kysytty >= m_raja; }

    QList<QPair<qint64, qint64>> vaiheet;

private:
    int m_raja;
    int m_kysytty = 0;
};
