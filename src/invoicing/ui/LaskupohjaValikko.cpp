#include "invoicing/ui/LaskupohjaValikko.h"

#include "core/MainModule.h"
#include "core/ui/Tietueikkuna.h"
#include "invoicing/Laskupohja.h"
#include "invoicing/ui/frmLaskupohjat.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace {

const QString valikonNimi = QStringLiteral("mLaskupohjat");
const QString pohjanNimi = QStringLiteral("mLaskupohjaX");

// What a built menu remembers: its kind and whom to tell of a choice.
class Valikkotiedot : public QObject {
public:
    Valikkotiedot(QMenu *valikko, int laskutyyppi) : QObject(valikko), laskutyyppi(laskutyyppi)
    {
        setObjectName(QStringLiteral("laskupohjaValikonTiedot"));
    }
    int laskutyyppi;
    std::function<void(int)> valittu;
};

Valikkotiedot *tiedot(QMenu *valikko)
{
    return valikko->findChild<Valikkotiedot *>(QStringLiteral("laskupohjaValikonTiedot"), Qt::FindDirectChildrenOnly);
}

} // namespace

namespace LaskupohjaValikko {

QMenu *rakenna(QMenuBar *palkki, int laskutyyppi, std::function<void(int)> valittu)
{
    auto *valikko = palkki->findChild<QMenu *>(valikonNimi);
    if (!valikko) {
        valikko = palkki->addMenu(QStringLiteral("Laskupohjat"));
        valikko->setObjectName(valikonNimi);
        QAction *muokkaa = valikko->addAction(QStringLiteral("Muokkaa laskupohjia"));
        muokkaa->setObjectName(QStringLiteral("mMuokkaaLaskupohjia"));
        valikko->addSeparator()->setObjectName(QStringLiteral("mLaskupohjaErotin"));
        QObject::connect(muokkaa, &QAction::triggered, valikko, [valikko, palkki] {
            AvaaLaskupohjat(palkki->window());
            paivita(valikko);
        });
        new Valikkotiedot(valikko, laskutyyppi);
    }
    Valikkotiedot *t = tiedot(valikko);
    t->laskutyyppi = laskutyyppi;
    t->valittu = std::move(valittu);
    paivita(valikko);
    return valikko;
}

void paivita(QMenu *valikko)
{
    Valikkotiedot *t = tiedot(valikko);
    if (!t)
        return;
    // An entry may be rebuilding its own menu: it goes once its signal is over.
    for (QAction *a : valikko->actions()) {
        if (a->objectName() == pohjanNimi) {
            valikko->removeAction(a);
            a->setObjectName(QString());
            a->deleteLater();
        }
    }
    cLaskupohjat pohjat;
    const bool luettu = tietue::Suojattu([&] { pohjat.Lataa(MainModule::DatabasePath, t->laskutyyppi); });
    if (QAction *erotin = valikko->findChild<QAction *>(QStringLiteral("mLaskupohjaErotin")))
        erotin->setVisible(luettu && pohjat.Count() > 0);
    if (!luettu)
        return;
    for (int i = 0; i < pohjat.Count(); ++i) {
        // "&" in a name is text, not a shortcut mark.
        QAction *a = valikko->addAction(QString(pohjat.Item(i).Nimi()).replace(QLatin1Char('&'), QStringLiteral("&&")));
        a->setObjectName(pohjanNimi);
        a->setData(i);
        QObject::connect(a, &QAction::triggered, valikko, [t, i] {
            if (t->valittu)
                t->valittu(i);
        });
    }
}

} // namespace LaskupohjaValikko
