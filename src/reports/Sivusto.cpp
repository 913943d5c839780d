#include "reports/Sivusto.h"

#include "reports/RaporttiVirhe.h"

#include <QDataStream>
#include <QDir>

namespace {

// One page as it is kept in the file: the item count, then each item's fields in order.
void kirjoita(QDataStream &s, const Sivu &sivu)
{
    s << quint32(sivu.kohteet.size());
    for (const Tulostekohde &k : sivu.kohteet)
        s << quint8(k.laji) << k.alue << k.teksti << qint32(k.fontti) << qint32(k.tasaus) << k.paksuus << quint32(k.vari)
          << quint32(k.tausta) << qint16(k.kierto);
}

Sivu lue(QDataStream &s)
{
    Sivu sivu;
    quint32 n = 0;
    s >> n;
    sivu.kohteet.resize(s.status() == QDataStream::Ok ? n : 0);
    for (Tulostekohde &k : sivu.kohteet) {
        quint8 laji = 0;
        qint32 fontti = 0, tasaus = 0;
        quint32 vari = 0, tausta = 0;
        qint16 kierto = 0;
        s >> laji >> k.alue >> k.teksti >> fontti >> tasaus >> k.paksuus >> vari >> tausta >> kierto;
        k.laji = KohdeLaji(laji);
        k.fontti = fontti;
        k.tasaus = tasaus;
        k.vari = vari;
        k.tausta = tausta;
        k.kierto = kierto;
    }
    return sivu;
}

} // namespace

Sivu Muistisivusto::sivu(int i) const
{
    if (i < 0 || i >= sivuja())
        return {};
    return m_d.sivut[size_t(i)];
}

Sivutiedosto::Sivutiedosto() : m_tiedosto(QDir::temp().filePath(QStringLiteral("vonari-esikatselu-XXXXXX.sivut"))) {}

void Sivutiedosto::virhe() const
{
    throw RaporttiVirhe(QStringLiteral("Raportin sivuja ei voi tallentaa väliaikaiseen tiedostoon %1: %2.")
                            .arg(m_tiedosto.fileName(), m_tiedosto.errorString()));
}

void Sivutiedosto::alku(const Asiakirja &pohja)
{
    m_pohja = pohja;
    m_pohja.sivut.clear();
    m_alut.clear();
    m_loppu = 0;
    if (!m_tiedosto.isOpen() && !m_tiedosto.open())
        virhe();
    m_tiedosto.resize(0);
    m_tiedosto.seek(0);
}

void Sivutiedosto::sivu(Sivu &&sivu)
{
    const qint64 alku = m_loppu;
    if (m_tiedosto.pos() != alku && !m_tiedosto.seek(alku))
        virhe();
    QDataStream s(&m_tiedosto);
    s.setVersion(QDataStream::Qt_6_4);
    kirjoita(s, sivu);
    if (s.status() != QDataStream::Ok)
        virhe();
    m_alut.push_back(alku);
    m_loppu = m_tiedosto.pos();
}

void Sivutiedosto::loppu(int riveja)
{
    m_pohja.riveja = riveja;
    if (!m_tiedosto.flush())
        virhe();
}

Sivu Sivutiedosto::sivu(int i) const
{
    if (i < 0 || i >= sivuja())
        return {};
    if (!m_tiedosto.seek(m_alut[size_t(i)]))
        virhe();
    QDataStream s(&m_tiedosto);
    s.setVersion(QDataStream::Qt_6_4);
    Sivu sivu = lue(s);
    if (s.status() != QDataStream::Ok)
        virhe();
    return sivu;
}
