#include "core/ui/frmAsetuksetLisa.h"

#include "core/AsetustenTallennus.h"
#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/ui/Tietueikkuna.h"
#include "core/ui/uihelpers.h"
#include "platform/dialogs.h"
#include "platform/files.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace M = MainModule;

frmAsetuksetLisa::frmAsetuksetLisa(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAsetuksetLisa"));
    setWindowTitle(QStringLiteral("Vonari - Lisäasetukset"));

    auto *suoritukset = new QGroupBox(QStringLiteral("Suoritukset"), this);
    auto *g1 = new QGridLayout(suoritukset);
    chkSuuretSuorituksetMaksetuksi =
        new QCheckBox(QStringLiteral("Merkitse lasku maksetuksi myös suuremmilla suorituksilla"), this);
    chkSuuretSuorituksetMaksetuksi->setObjectName(QStringLiteral("chkSuuretSuorituksetMaksetuksi"));
    chkSuorituksellaMaksetuksiJosEiLoppusummaa =
        new QCheckBox(QStringLiteral("Merkitse lasku maksetuksi jos lasku tulostettu ilman loppusummaa"), this);
    chkSuorituksellaMaksetuksiJosEiLoppusummaa->setObjectName(
        QStringLiteral("chkSuorituksellaMaksetuksiJosEiLoppusummaa"));
    tSuoritustiedosto = new QLineEdit(this);
    tSuoritustiedosto->setObjectName(QStringLiteral("tSuoritustiedosto"));
    tSuoritustiedosto->setMaxLength(255);
    tSuoritustiedosto->setToolTip(QStringLiteral("Tiedosto, johon kirjataan laskua suuremmat suoritukset"));
    cSuoritustiedostonValinta = new QPushButton(QStringLiteral("Selaa..."), this);
    cSuoritustiedostonValinta->setObjectName(QStringLiteral("cSuoritustiedostonValinta"));
    g1->addWidget(chkSuuretSuorituksetMaksetuksi, 0, 0, 1, 2);
    g1->addWidget(chkSuorituksellaMaksetuksiJosEiLoppusummaa, 1, 0, 1, 2);
    g1->addWidget(new QLabel(QStringLiteral("Tiedosto suuremmille suorituksille:")), 2, 0, 1, 2);
    g1->addWidget(tSuoritustiedosto, 3, 0);
    g1->addWidget(cSuoritustiedostonValinta, 3, 1);

    auto *vienti = new QGroupBox(QStringLiteral("Osoitetietojen vienti"), this);
    auto *g2 = new QGridLayout(vienti);
    tOsoitteidenVienti = new QLineEdit(this);
    tOsoitteidenVienti->setObjectName(QStringLiteral("tOsoitteidenVienti"));
    tOsoitteidenVienti->setMaxLength(255);
    cOsoitetiedostonValinta = new QPushButton(QStringLiteral("Selaa..."), this);
    cOsoitetiedostonValinta->setObjectName(QStringLiteral("cOsoitetiedostonValinta"));
    auto *muodot = new QHBoxLayout;
    optOsoitemuoto.resize(3);
    // Shown in this order; the index is the stored format.
    const std::pair<int, const char16_t *> jarjestys[] = {{2, u"Excel"}, {0, u"Lista 1"}, {1, u"Lista 2"}};
    for (const auto &[muoto, teksti] : jarjestys) {
        auto *o = new QRadioButton(QString::fromUtf16(teksti), this);
        o->setObjectName(QStringLiteral("optOsoitemuoto_%1").arg(muoto));
        optOsoitemuoto[muoto] = o;
        muodot->addWidget(o);
    }
    optOsoitemuoto[0]->setToolTip(QStringLiteral("Tekstitiedosto, kentät puolipisteellä erotettuina"));
    optOsoitemuoto[1]->setToolTip(QStringLiteral("Tekstitiedosto, kentät kiinteissä sarakkeissa"));
    optOsoitemuoto[2]->setToolTip(QStringLiteral("Taulukkolaskentatiedosto"));
    muodot->addStretch();
    g2->addWidget(new QLabel(QStringLiteral("Osoitetietojen vientitiedosto:")), 0, 0, 1, 2);
    g2->addWidget(tOsoitteidenVienti, 1, 0);
    g2->addWidget(cOsoitetiedostonValinta, 1, 1);
    g2->addWidget(new QLabel(QStringLiteral("Osoitetietojen muoto:")), 2, 0, 1, 2);
    g2->addLayout(muodot, 3, 0, 1, 2);

    connect(cSuoritustiedostonValinta, &QPushButton::clicked, this, [this] {
        valitse(tSuoritustiedosto, QStringLiteral(" - Suoritustiedosto"), QStringLiteral("Teksti (*.txt)|*.txt"));
    });
    connect(cOsoitetiedostonValinta, &QPushButton::clicked, this, [this] {
        valitse(tOsoitteidenVienti, QStringLiteral(" - Osoitetietojen vientitiedosto"),
                QStringLiteral("Teksti (*.txt)|*.txt|Excel (*.xlsx)|*.xlsx|Kaikki tiedostot (*.*)|*.*"));
    });

    cTallenna = new QPushButton(QStringLiteral("Tallenna"), this);
    cTallenna->setObjectName(QStringLiteral("cTallenna"));
    cPeru = new QPushButton(QStringLiteral("Peru"), this);
    cPeru->setObjectName(QStringLiteral("cPeru"));
    cSulje = new QPushButton(QStringLiteral("Sulje"), this);
    cSulje->setObjectName(QStringLiteral("cSulje"));
    for (QPushButton *b : {cSuoritustiedostonValinta, cOsoitetiedostonValinta, cTallenna, cPeru, cSulje})
        b->setAutoDefault(false);
    connect(cTallenna, &QPushButton::clicked, this, &frmAsetuksetLisa::cTallenna_Click);
    connect(cPeru, &QPushButton::clicked, this, [this] { done(QDialog::Rejected); });
    connect(cSulje, &QPushButton::clicked, this, &frmAsetuksetLisa::cSulje_Click);
    auto *napit = new QHBoxLayout;
    napit->addStretch();
    napit->addWidget(cTallenna);
    napit->addWidget(cPeru);
    napit->addWidget(cSulje);

    auto *paa = new QVBoxLayout(this);
    paa->addWidget(suoritukset);
    paa->addWidget(vienti);
    paa->addStretch();
    paa->addLayout(napit);

    resize(qMax(sizeHint().width(), 520), sizeHint().height());
    tayta();
    const auto merkitse = [this] { m_muuttunut = true; };
    for (QCheckBox *c : {chkSuuretSuorituksetMaksetuksi, chkSuorituksellaMaksetuksiJosEiLoppusummaa})
        connect(c, &QCheckBox::toggled, this, merkitse);
    for (QLineEdit *t : {tSuoritustiedosto, tOsoitteidenVienti})
        connect(t, &QLineEdit::textChanged, this, merkitse);
    for (QRadioButton *o : optOsoitemuoto)
        connect(o, &QRadioButton::toggled, this, merkitse);
    for (QLineEdit *t : {tSuoritustiedosto, tOsoitteidenVienti})
        t->installEventFilter(this);
    LataaIkkunanPaikka(this);
}

bool frmAsetuksetLisa::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn)
        if (auto *t = qobject_cast<QLineEdit *>(watched))
            MaalaaTeksti(t);
    return QDialog::eventFilter(watched, event);
}

void frmAsetuksetLisa::tayta()
{
    chkSuuretSuorituksetMaksetuksi->setChecked(M::SuuretSuorituksetMaksetuksi);
    chkSuorituksellaMaksetuksiJosEiLoppusummaa->setChecked(M::SuorituksellaMaksetuksiJosEiLoppusummaa);
    tSuoritustiedosto->setText(M::Suoritustiedosto);
    tOsoitteidenVienti->setText(M::OsoiteTiedosto);
    optOsoitemuoto[qBound(0, M::OsoiteMuoto, 2)]->setChecked(true);
}

// Both files are written by the program, so the dialog lets the user name a new one.
void frmAsetuksetLisa::valitse(QLineEdit *kentta, const QString &otsikonLoppu, const QString &suodatin)
{
    dlg::FileRequest pyynto;
    pyynto.title = M::AppName + otsikonLoppu;
    pyynto.filter = suodatin;
    pyynto.startPath = kentta->text().isEmpty() ? files::documentsFolder() : kentta->text();
    const QString valittu = dlg::current().saveFile(pyynto);
    if (!valittu.isEmpty())
        kentta->setText(valittu);
}

void frmAsetuksetLisa::cTallenna_Click()
{
    LisaasetuksetSyote s;
    s.chkSuuretSuorituksetMaksetuksi = chkSuuretSuorituksetMaksetuksi->isChecked();
    s.chkSuorituksellaMaksetuksiJosEiLoppusummaa = chkSuorituksellaMaksetuksiJosEiLoppusummaa->isChecked();
    s.tSuoritustiedosto = tSuoritustiedosto->text();
    s.tOsoitteidenVienti = tOsoitteidenVienti->text();
    for (int i = 0; i < optOsoitemuoto.size(); ++i)
        if (optOsoitemuoto[i]->isChecked())
            s.optOsoitemuoto = i;
    bool ok = false;
    {
        cMouseCursor kursori;
        kursori.SetCursor(this, Qt::WaitCursor);
        ok = TallennaLisaasetukset(s);
    }
    if (ok) {
        m_muuttunut = false;
        done(QDialog::Accepted);
    }
}

void frmAsetuksetLisa::cSulje_Click()
{
    tietue::SuljeKysyen(m_muuttunut, [this] { cTallenna_Click(); }, [this] { done(QDialog::Rejected); });
}

void frmAsetuksetLisa::reject() { cSulje_Click(); }

void frmAsetuksetLisa::done(int result)
{
    TallennaIkkunanPaikka(this);
    QDialog::done(result);
}

void AvaaLisaasetukset(QWidget *parent) { tietue::AvaaModaalisena<frmAsetuksetLisa>(parent); }
