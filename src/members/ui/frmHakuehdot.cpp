#include "members/ui/frmHakuehdot.h"

#include "core/MainModule.h"
#include "core/Ilmoitukset.h"
#include "core/Schema.h"
#include "members/Hakuehdot.h"
#include "platform/dialogs.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString Vertailut[] = {u"Valitse pienemmät luetteloon"_s, u"Valitse yhtäsuuret luetteloon"_s,
                             u"Valitse suuremmat luetteloon"_s};

// Radio buttons in one exclusive group, stacked; index = value.
QVector<QRadioButton *> vaihtoehdot(QWidget *omistaja, QBoxLayout *asettelu, const QStringList &tekstit,
                                    const char *nimi)
{
    auto *ryhma = new QButtonGroup(omistaja);
    QVector<QRadioButton *> napit;
    for (int i = 0; i < tekstit.size(); ++i) {
        auto *n = new QRadioButton(tekstit[i]);
        n->setObjectName(QString::fromLatin1(nimi) + QString::number(i));
        ryhma->addButton(n, i);
        asettelu->addWidget(n);
        napit << n;
    }
    return napit;
}

void valitse(const QVector<QRadioButton *> &napit, int indeksi)
{
    if (indeksi >= 0 && indeksi < napit.size())
        napit[indeksi]->setChecked(true);
}

// The index of the button that is on; `vanha` when none is.
int valittu(const QVector<QRadioButton *> &napit, int vanha)
{
    for (int i = 0; i < napit.size(); ++i)
        if (napit[i]->isChecked())
            return i;
    return vanha;
}

} // namespace

bool NaytaHakuehdot(QWidget *parent)
{
    frmHakuehdot ikkuna(parent);
    if (!ikkuna.Lataa())
        return false;
    return ikkuna.exec() == QDialog::Accepted;
}

frmHakuehdot::frmHakuehdot(QWidget *parent) : QDialog(parent)
{
    setObjectName(u"frmHakuehdot"_s);
    setWindowTitle(u"Vonari - Hakuehdot"_s);

    cSeuraava = new QPushButton(u"Seuraava >>"_s);
    cSeuraava->setObjectName(u"cSeuraava"_s);
    cSeuraava->setDefault(true);
    connect(cSeuraava, &QPushButton::clicked, this, &frmHakuehdot::cSeuraava_Click);

    // The list makes the left column the taller one; the button takes the room under the right.
    auto *oikea = new QVBoxLayout;
    oikea->addWidget(luoRajoitukset());
    oikea->addStretch();
    oikea->addWidget(cSeuraava, 0, Qt::AlignRight);

    auto *sarakkeet = new QHBoxLayout(this);
    sarakkeet->setSpacing(12);
    sarakkeet->addWidget(luoOminaisuudet(), 1);
    sarakkeet->addLayout(oikea);

    m_tarkistettavat = {tDate, tLong, tCurrency, tSyntAika, tLiit};
    for (QLineEdit *t : m_tarkistettavat)
        t->installEventFilter(this);
    connect(lstOminaisuudet, &QListWidget::itemSelectionChanged, this, &frmHakuehdot::AsetaTarkennukset);
    connect(chkPiirre, &QCheckBox::toggled, this, &frmHakuehdot::AsetaTarkennukset);
}

QWidget *frmHakuehdot::luoOminaisuudet()
{
    auto *sivu = new QWidget;
    auto *asettelu = new QVBoxLayout(sivu);
    asettelu->setContentsMargins(0, 0, 0, 0);

    lstOminaisuudet = new QListWidget;
    lstOminaisuudet->setObjectName(u"lstOminaisuudet"_s);
    lstOminaisuudet->setSelectionMode(QAbstractItemView::MultiSelection);
    lstOminaisuudet->setMinimumHeight(220);
    lstOminaisuudet->setSpacing(1);
    auto *otsikko = new QLabel(u"Ominaisuudet:"_s);
    otsikko->setBuddy(lstOminaisuudet);
    asettelu->addWidget(otsikko);
    asettelu->addWidget(lstOminaisuudet, 1);

    chkPiirre = new QCheckBox(u"EI"_s);
    chkPiirre->setObjectName(u"chkPiirre"_s);
    optJA = new QRadioButton(u"JA"_s);
    optJA->setObjectName(u"optJA"_s);
    optTAI = new QRadioButton(u"TAI"_s);
    optTAI->setObjectName(u"optTAI"_s);
    auto *jaTai = new QButtonGroup(this);
    jaTai->addButton(optJA);
    jaTai->addButton(optTAI);
    auto *liitos = new QHBoxLayout;
    liitos->addWidget(chkPiirre);
    liitos->addSpacing(12);
    liitos->addWidget(optJA);
    liitos->addWidget(optTAI);
    liitos->addStretch();
    asettelu->addLayout(liitos);

    frameTarkennukset = new QGroupBox(u"Tarkennukset ominaisuuteen"_s);
    frameTarkennukset->setObjectName(u"frameTarkennukset"_s);
    auto *ruudukko = new QGridLayout(frameTarkennukset);
    tDate = ehtoRivi(ruudukko, 0, u"Päivämäärä:"_s, "tDate", optDate, "optDate");
    tDate->setToolTip(u"Syötä päivämäärä rajaamaan luetteloa"_s);
    tLong = ehtoRivi(ruudukko, 1, u"Luku:"_s, "tLong", optLong, "optLong");
    tLong->setToolTip(u"Syötä lukuarvo rajaamaan luetteloa"_s);
    tCurrency = ehtoRivi(ruudukko, 2, u"Arvo:"_s, "tCurrency", optCurrency, "optCurrency");
    tCurrency->setToolTip(u"Syötä arvo rajaamaan luetteloa"_s);
    asettelu->addWidget(frameTarkennukset);
    return sivu;
}

QWidget *frmHakuehdot::luoRajoitukset()
{
    auto *kehys = new QGroupBox(u"Rajoitukset"_s);
    auto *asettelu = new QVBoxLayout(kehys);

    auto *kaikki = new QVBoxLayout;
    optKaikkiVaiPerhe = vaihtoehdot(this, kaikki, {u"Kaikki"_s, u"Peheen laskutettavat"_s}, "optKaikkiVaiPerhe");
    asettelu->addLayout(kaikki);

    auto *maksu = new QGroupBox(u"Jäsenmaksu"_s);
    auto *maksuAsettelu = new QHBoxLayout(maksu);
    optJasenmaksu = vaihtoehdot(this, maksuAsettelu, {u"Maksettu"_s, u"Maksamatta"_s, u"Ei merkitystä"_s},
                                "optJasenmaksu");
    maksuAsettelu->addStretch();
    asettelu->addWidget(maksu);

    auto *paivat = new QGroupBox(u"Päivämäärärajaukset"_s);
    auto *ruudukko = new QGridLayout(paivat);
    tSyntAika = ehtoRivi(ruudukko, 0, u"Syntymäpäivä:"_s, "tSyntAika", optSyntAika, "optSyntAika");
    tLiit = ehtoRivi(ruudukko, 1, u"Liittymispäivä:"_s, "tLiit", optLiit, "optLiit");
    asettelu->addWidget(paivat);

    auto *posti = new QGroupBox(u"Postinumerorajaus"_s);
    auto *postiAsettelu = new QHBoxLayout(posti);
    tPostiNumeroAlku = new QLineEdit;
    tPostiNumeroAlku->setObjectName(u"tPostiNumeroAlku"_s);
    tPostiNumeroLoppu = new QLineEdit;
    tPostiNumeroLoppu->setObjectName(u"tPostiNumeroLoppu"_s);
    for (auto [teksti, t] : {std::pair{u"Alku:"_s, tPostiNumeroAlku}, {u"Loppu:"_s, tPostiNumeroLoppu}}) {
        t->setMaxLength(Schema::leveys(u"jr"_s, u"jrPostinumero"_s));
        t->setFixedWidth(fontMetrics().horizontalAdvance(u"000000000"_s));
        auto *l = new QLabel(teksti);
        l->setBuddy(t);
        postiAsettelu->addWidget(l);
        postiAsettelu->addWidget(t);
        postiAsettelu->addSpacing(8);
    }
    postiAsettelu->addStretch();
    asettelu->addWidget(posti);
    return kehys;
}

// A condition: its label and box, and the three comparisons stacked beside the box.
QLineEdit *frmHakuehdot::ehtoRivi(QGridLayout *ruudukko, int rivi, const QString &otsikko, const char *nimi,
                                  QVector<QRadioButton *> &napit, const char *nappiNimi)
{
    auto *t = new QLineEdit;
    t->setObjectName(QString::fromLatin1(nimi));
    t->setFixedWidth(fontMetrics().horizontalAdvance(u"00.00.00000"_s));
    auto *l = new QLabel(otsikko);
    l->setBuddy(t);
    l->setMinimumHeight(t->sizeHint().height()); // level with the box's text
    auto *pino = new QVBoxLayout;
    pino->setSpacing(0);
    napit = vaihtoehdot(this, pino, {Vertailut[0], Vertailut[1], Vertailut[2]}, nappiNimi);
    ruudukko->addWidget(l, rivi, 0, Qt::AlignTop | Qt::AlignLeft);
    ruudukko->addWidget(t, rivi, 1, Qt::AlignTop);
    ruudukko->addLayout(pino, rivi, 2);
    ruudukko->setColumnStretch(2, 1);
    ruudukko->setVerticalSpacing(10);
    return t;
}

bool frmHakuehdot::Lataa()
{
    if (MainModule::DatabasePath.isEmpty() || MainModule::DatabasePath == u"unknown"_s) {
        Ilmoita(u"Tarkista tietokanta asetukset asetusikkunasta!"_s);
        return false;
    }
    try {
        auto d = db::Database::open(MainModule::DatabasePath);
        for (const HakuOminaisuus &o : HakuOminaisuudet(*d)) {
            auto *rivi = new QListWidgetItem(o.piNimi, lstOminaisuudet);
            rivi->setData(Qt::UserRole, o.piID);
        }
    } catch (const db::DbError &e) {
        Ilmoita(e.message());
        return false;
    }
    if (lstOminaisuudet->count() > 0)
        lstOminaisuudet->setCurrentRow(0, QItemSelectionModel::NoUpdate);
    naytaLohko();
    return true;
}

// The last answers, so that a new run starts from them.
void frmHakuehdot::naytaLohko()
{
    const HakuParametrit &p = Haku;
    for (int i = 0; i < lstOminaisuudet->count(); ++i) {
        QListWidgetItem *rivi = lstOminaisuudet->item(i);
        const qint32 id = rivi->data(Qt::UserRole).toInt();
        rivi->setSelected(std::find(p.ValitutOminaisuudet.begin(), p.ValitutOminaisuudet.end(), id)
                          != p.ValitutOminaisuudet.end());
    }
    chkPiirre->setChecked(p.bOminNot);
    (p.bOminAnd ? optJA : optTAI)->setChecked(true);
    tDate->setText(p.sheDate);
    tLong->setText(p.sheLong);
    tCurrency->setText(p.sheCurrency);
    valitse(optDate, p.iheDate);
    valitse(optLong, p.iheLong);
    valitse(optCurrency, p.iheCurrency);
    valitse(optKaikkiVaiPerhe, p.lKaikkiVaiPerheet == 1 ? 1 : 0);
    valitse(optJasenmaksu, p.lJasenmaksunTila == 0 || p.lJasenmaksunTila == 1 ? p.lJasenmaksunTila : 2);
    tSyntAika->setText(p.dateSynt);
    valitse(optSyntAika, p.eqSynt);
    tLiit->setText(p.dateLiit);
    valitse(optLiit, p.eqLiit);
    tPostiNumeroAlku->setText(p.lPostinumeroAlku);
    tPostiNumeroLoppu->setText(p.lPostinumeroLoppu);
    AsetaTarkennukset();
}

// The refinements concern the value of one attribute that is held, so they are open only then.
void frmHakuehdot::AsetaTarkennukset()
{
    const bool sallittu = lstOminaisuudet->selectedItems().size() < 2 && !chkPiirre->isChecked();
    frameTarkennukset->setEnabled(sallittu);
    if (!sallittu) {
        tDate->clear();
        tLong->clear();
        tCurrency->clear();
    }
}

bool frmHakuehdot::eventFilter(QObject *kohde, QEvent *tapahtuma)
{
    if (tapahtuma->type() == QEvent::FocusOut)
        if (auto *t = qobject_cast<QLineEdit *>(kohde); t && m_tarkistettavat.contains(t))
            tarkistaPoistuttaessa(t);
    return QDialog::eventFilter(kohde, tapahtuma);
}

void frmHakuehdot::tarkistaPoistuttaessa(QLineEdit *t)
{
    const std::optional<QString> tulos = t == tLong       ? TarkistaHakuLuku(t->text())
                                         : t == tCurrency ? TarkistaHakuArvo(t->text())
                                                          : TarkistaHakuPaiva(t->text());
    if (!tulos) {
        dlg::current().beep();
        t->clear();
    } else if (*tulos != t->text()) {
        t->setText(*tulos);
    }
}

void frmHakuehdot::cSeuraava_Click()
{
    // Enter on the default button leaves no box: check them all here as well.
    for (QLineEdit *t : m_tarkistettavat)
        tarkistaPoistuttaessa(t);

    HakuParametrit &p = Haku;
    p.iheDate = valittu(optDate, p.iheDate);
    p.iheLong = valittu(optLong, p.iheLong);
    p.iheCurrency = valittu(optCurrency, p.iheCurrency);
    p.eqSynt = valittu(optSyntAika, p.eqSynt);
    p.eqLiit = valittu(optLiit, p.eqLiit);
    p.sheDate = tDate->text();
    p.sheLong = tLong->text();
    p.sheCurrency = tCurrency->text();

    // At most thirty attributes take part; the last element always ends the list.
    p.ValitutOminaisuudet.fill(0);
    int n = 0;
    for (int i = 0; i < lstOminaisuudet->count() && n < HakuParametrit::Valittavissa; ++i)
        if (lstOminaisuudet->item(i)->isSelected())
            p.ValitutOminaisuudet[n++] = lstOminaisuudet->item(i)->data(Qt::UserRole).toInt();

    p.lJasenmaksunTila = optJasenmaksu[0]->isChecked() ? 0 : optJasenmaksu[1]->isChecked() ? 1 : 2;
    p.lKaikkiVaiPerheet = optKaikkiVaiPerhe[0]->isChecked() ? 0 : 1;
    p.bOminNot = chkPiirre->isChecked();
    p.dateLiit = tLiit->text();
    p.dateSynt = tSyntAika->text();
    p.bOminAnd = optJA->isChecked();
    p.lPostinumeroAlku = tPostiNumeroAlku->text();
    p.lPostinumeroLoppu = tPostiNumeroLoppu->text();
    accept();
}
