// The "Perustiedot" and "Muistio" pages: the member's own fields and what typing in them does.
#include "members/ui/frmJasen.h"
#include "core/ui/Tietueikkuna.h"
#include "platform/kello.h"

#include "core/Ilmoitukset.h"
#include "platform/dialogs.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel *otsikko(const QString &teksti, QWidget *kentta)
{
    auto *l = new QLabel(teksti);
    l->setBuddy(kentta);
    return l;
}

} // namespace

QWidget *frmJasen::RakennaPerustiedot()
{
    auto *sivu = new QWidget;
    for (int i = 0; i < YhteystietoMaara; ++i) {
        auto *t = new QLineEdit(sivu);
        t->setObjectName(QStringLiteral("tYhteystiedot_%1").arg(i));
        t->setMaxLength(OnPaivaKentta(i) ? 10 : YhteystietoLeveys(i));
        tYhteystiedot[i] = t;
    }
    const auto &t = tYhteystiedot;
    chkJasenmaksu = new QCheckBox(sivu);
    chkJasenmaksu->setObjectName(QStringLiteral("chkJasenmaksu"));
    chkEmailLasku = new QCheckBox(sivu);
    chkEmailLasku->setObjectName(QStringLiteral("chkEmailLasku"));
    cLisaaViiteTarkiste = new QPushButton(QStringLiteral("Lisää viitetarkiste"), sivu);
    cLisaaViiteTarkiste->setObjectName(QStringLiteral("cLisaaViiteTarkiste"));
    connect(cLisaaViiteTarkiste, &QPushButton::clicked, this, [this] { tietue::Suojattu([this] { cLisaaViiteTarkiste_Click(); }); });

    auto *g = new QGridLayout(sivu);
    g->setHorizontalSpacing(8);
    g->setColumnMinimumWidth(2, 16);
    g->setColumnStretch(1, 1);
    g->setColumnStretch(4, 1);
    auto vasen = [&](int rivi, const QString &teksti, QWidget *kentta) {
        g->addWidget(otsikko(teksti, kentta), rivi, 0);
        g->addWidget(kentta, rivi, 1);
    };
    auto oikea = [&](int rivi, const QString &teksti, QWidget *kentta) {
        g->addWidget(otsikko(teksti, kentta), rivi, 3);
        g->addWidget(kentta, rivi, 4);
    };
    vasen(0, QStringLiteral("Jäsennumero:"), t[iJasennumero]);
    vasen(1, QStringLiteral("Sukunimi:"), t[iSukunimi]);
    vasen(2, QStringLiteral("Etunimi:"), t[iEtunimi]);
    vasen(3, QStringLiteral("Titteli:"), t[iTitteli]);
    vasen(4, QStringLiteral("Yritys:"), t[iYritys]);
    vasen(5, QStringLiteral("Osoite:"), t[iOsoite]);
    auto *posti = new QHBoxLayout;
    t[iPostinumero]->setFixedWidth(t[iPostinumero]->fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 14);
    posti->addWidget(t[iPostinumero]);
    posti->addWidget(t[iPostitoimipaikka], 1);
    g->addWidget(otsikko(QStringLiteral("Postiosoite:"), t[iPostinumero]), 6, 0);
    g->addLayout(posti, 6, 1);
    vasen(7, QStringLiteral("Kotipaikka:"), t[iKotipaikka]);
    vasen(8, QStringLiteral("Maa:"), t[iMaa]);

    oikea(0, QStringLiteral("Puhelin:"), t[iPuhelin]);
    oikea(1, QStringLiteral("Matkapuhelin:"), t[iMatkapuhelin]);
    oikea(2, QStringLiteral("Email:"), t[iEmail]);
    oikea(3, QStringLiteral("Syntymäpäivä:"), t[iSyntyma]);
    oikea(4, QStringLiteral("Liittymispäivä:"), t[iLiittyma]);
    auto *viite = new QHBoxLayout;
    viite->addWidget(t[iViitenumero], 1);
    viite->addWidget(cLisaaViiteTarkiste);
    g->addWidget(otsikko(QStringLiteral("Viitenumero:"), t[iViitenumero]), 5, 3);
    g->addLayout(viite, 5, 4);
    oikea(6, QStringLiteral("Lisätieto 1:"), t[iLisatieto1]);
    oikea(7, QStringLiteral("Lisätieto 2:"), t[iLisatieto2]);
    oikea(8, QStringLiteral("Jäsenmaksu OK:"), chkJasenmaksu);
    oikea(9, QStringLiteral("Lasku sähköpostilla:"), chkEmailLasku);
    for (int i : {iSyntyma, iLiittyma}) {
        t[i]->setMaximumWidth(t[i]->fontMetrics().horizontalAdvance(QStringLiteral("00.00.00000")) + 14);
        t[i]->setToolTip(i == iLiittyma ? QStringLiteral("Päivämäärä muodossa p.k.vvvv; + ja - muuttavat päivää")
                                        : QStringLiteral("Päivämäärä muodossa p.k.vvvv"));
    }
    g->setRowStretch(10, 1);

    QWidget *edellinen = nullptr;
    const int jarjestys[] = {iJasennumero, iSukunimi,   iEtunimi,      iTitteli,  iYritys,       iOsoite,
                             iPostinumero, iPostitoimipaikka, iKotipaikka, iMaa, iPuhelin, iMatkapuhelin,
                             iEmail,       iSyntyma,    iLiittyma,     iViitenumero};
    for (int i : jarjestys) {
        if (edellinen)
            setTabOrder(edellinen, t[i]);
        edellinen = t[i];
    }
    for (QWidget *w : std::initializer_list<QWidget *>{cLisaaViiteTarkiste, t[iLisatieto1], t[iLisatieto2], chkJasenmaksu, chkEmailLasku}) {
        setTabOrder(edellinen, w);
        edellinen = w;
    }
    return sivu;
}

QWidget *frmJasen::RakennaMuistio()
{
    auto *sivu = new QWidget;
    auto *v = new QVBoxLayout(sivu);
    tMuistio = new QPlainTextEdit(sivu);
    tMuistio->setObjectName(QStringLiteral("tMuistio"));
    v->addWidget(tMuistio);
    return sivu;
}

void frmJasen::KytkeKentat()
{
    for (int i = 0; i < YhteystietoMaara; ++i)
        connect(tYhteystiedot[i], &QLineEdit::textChanged, this, [this] { AloitaMuokkaus(); });
    connect(tMuistio, &QPlainTextEdit::textChanged, this, [this] { AloitaMuokkaus(); });
    connect(chkJasenmaksu, &QCheckBox::toggled, this, [this] { AloitaMuokkaus(); });
    connect(chkEmailLasku, &QCheckBox::toggled, this, [this] { AloitaMuokkaus(); });
}

void frmJasen::KenttaPoistui(int i)
{
    QLineEdit *t = tYhteystiedot[i];
    if (OnPaivaKentta(i)) {
        const PaivanMuotoilu m = MuotoilePaiva(t->text());
        if (m.hylatty) {
            t->clear();
            dlg::current().beep();
        } else if (m.teksti != t->text()) {
            t->setText(m.teksti);
        }
    } else if (i == iPostitoimipaikka && tYhteystiedot[iKotipaikka]->text().isEmpty()) {
        tYhteystiedot[iKotipaikka]->setText(t->text());
    }
}

// + and - move the joining date by a day; with no date in the box, either gives today.
bool frmJasen::LiittymaNappain(QKeyEvent *k)
{
    const int muutos = k->text() == QLatin1String("+") ? 1 : k->text() == QLatin1String("-") ? -1 : 0;
    if (muutos == 0)
        return false;
    QLineEdit *t = tYhteystiedot[iLiittyma];
    t->setText(SiirraPaivaa(t->text(), muutos, kello::tanaan()));
    return true;
}

void frmJasen::cLisaaViiteTarkiste_Click()
{
    const ViitetarkisteTulos r = LisaaViitetarkiste(tYhteystiedot[iViitenumero]->text());
    if (r.viite)
        tYhteystiedot[iViitenumero]->setText(*r.viite);
    else
        Ilmoita(r.viesti);
}
