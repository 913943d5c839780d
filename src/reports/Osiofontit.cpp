#include "reports/Osiofontit.h"

#include "reports/RaporttiVirhe.h"

bool OsiofonttiKoskee(const Osiofontti &f, const Osa &o)
{
    const QString s = f.osio.toUpper();
    if (s == QLatin1String("ALL"))
        return true;
    switch (o.laji) {
    case OsaLaji::Rivi: return s == QLatin1String("DETAIL");
    case OsaLaji::Raporttiotsikko: return s == QLatin1String("TITLE");
    case OsaLaji::Sivuotsikko: return s == QLatin1String("HEADER");
    case OsaLaji::Sivualatunniste: return s == QLatin1String("FOOTER");
    case OsaLaji::Raporttialatunniste: return s == QLatin1String("SUMMARY");
    case OsaLaji::Ryhmaotsikko: return s == QStringLiteral("GH%1").arg(o.taso);
    case OsaLaji::Ryhmaalatunniste: return s == QStringLiteral("GF%1").arg(o.taso);
    }
    return false;
}

void YhdistaFontti(FonttiMaaritys &f, const FonttiMaaritys &paalle)
{
    if (!paalle.nimi.isEmpty())
        f.nimi = paalle.nimi;
    if (paalle.koko > 0)
        f.koko = paalle.koko;
    if (paalle.lihava)
        f.lihava = paalle.lihava;
    if (paalle.kursiivi)
        f.kursiivi = paalle.kursiivi;
    if (paalle.alleviivattu)
        f.alleviivattu = paalle.alleviivattu;
}

// Text widths as the sum of the characters' advances. The fonts are laid out without kerning, so

std::optional<Osiofontti> JasennaOsiofontti(const QString &teksti)
{
    if (teksti.trimmed().isEmpty())
        return std::nullopt;
    const QStringList osat = teksti.split(QLatin1Char(';'));
    Osiofontti f;
    f.osio = osat.value(0).trimmed();
    if (f.osio.isEmpty())
        throw RaporttiVirhe(QStringLiteral("Osiofontti \"%1\" ei kelpaa: osion nimi puuttuu.").arg(teksti));
    auto osa = [&](int i) {
        const QString s = osat.value(i).trimmed();
        return s.compare(QLatin1String("X"), Qt::CaseInsensitive) == 0 ? QString() : s;
    };
    f.nimi = osa(1);
    if (!osa(2).isEmpty()) {
        bool ok = false;
        f.koko = osa(2).toDouble(&ok);
        if (!ok || f.koko <= 0 || f.koko > 200)
            throw RaporttiVirhe(QStringLiteral("Osiofontti \"%1\" ei kelpaa: koko %2 ei ole fonttikoko.").arg(teksti, osa(2)));
    }
    auto lippu = [&](int i) -> std::optional<bool> {
        const QString s = osa(i);
        if (s.isEmpty())
            return std::nullopt;
        return s != QLatin1String("0") && s.compare(QLatin1String("false"), Qt::CaseInsensitive) != 0;
    };
    f.kursiivi = lippu(3);
    f.alleviivattu = lippu(4);
    f.lihava = lippu(5);
    return f;
}
