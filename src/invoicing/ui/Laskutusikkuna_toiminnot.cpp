// The invoice window's events: keeping the total, the fields' checks on leaving, the lists, and
// the run, the move to history and the delete.
#include "invoicing/ui/Laskutusikkuna.h"
#include "invoicing/ui/frmMaksujenLuonti.h"
#include "invoicing/ui/frmOminLasku.h"
#include "invoicing/ui/frmPerhelasku.h"

#include "core/Ilmoitukset.h"
#include "core/ui/Tietueikkuna.h"
#include "core/ui/uihelpers.h"
#include "email/Laskujenlahetys.h"
#include "invoicing/Jasenmaksuajo.h"
#include "invoicing/Laskuera.h"
#include "invoicing/Laskutuslistat.h"
#include "invoicing/ui/frmLaskumalli.h"
#include "reports/jasen/ui/frmTulJarjValinta.h"
#include "core/ui/ListaMalli.h"
#include "members/ui/frmJasen.h"
#include "platform/arvot.h"
#include "platform/kello.h"
#include "platform/ui/Edistymispalkki.h"
#include "reports/RaporttiVirhe.h"
#include "reports/Tulostus.h"
#include "reports/ui/frmTulostus.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

namespace {

// Marks the window busy for as long as a run's transaction is open, whatever ends the run.
struct Ajossa {
    bool &lippu;
    explicit Ajossa(bool &l) : lippu(l) { lippu = true; }
    ~Ajossa() { lippu = false; }
};

// A run with the window's own bar and "Keskeytä". A stop has rolled everything back.
template <class F>
bool ajaPalkilla(bool &ajossa, QProgressBar *palkki, QPushButton *keskeyta, const QVector<QWidget *> &pois, F &&tyo)
{
    Ajossa merkki(ajossa);
    auto d = tietue::AvaaKanta();
    Edistymispalkki edistys(palkki, keskeyta, pois);
    try {
        tyo(Ajo(*d, &edistys));
    } catch (const Keskeytetty &) {
        Ilmoita(QStringLiteral("Keskeytetty. Mitään ei tallennettu."));
        return false;
    }
    return true;
}

} // namespace

void Laskutusikkuna::yhdista()
{
    for (QLineEdit *t : {tLaskunPaiva, tLaskunErapaiva})
        connect(t, &QLineEdit::editingFinished, this, [this, t] { paivaLahtiessa(t); });
    // The focus leaves the box or its line edit, depending on where the user typed.
    for (QComboBox *c : {cmbNimet, cmbMaksunOtsake}) {
        c->installEventFilter(this);
        c->lineEdit()->installEventFilter(this);
    }
    cmbTilinumerot->installEventFilter(this);
}

bool Laskutusikkuna::eventFilter(QObject *kohde, QEvent *e)
{
    // F4 moves the batch to history here, also from a list box that would open on it.
    if (e->type() == QEvent::ShortcutOverride) {
        auto *k = static_cast<QKeyEvent *>(e);
        if (k->key() == Qt::Key_F4 && k->modifiers() == Qt::NoModifier) {
            e->ignore();
            return true;
        }
    }
    if (e->type() == QEvent::FocusOut) {
        if (kohde == cmbNimet || kohde == cmbNimet->lineEdit())
            nimiLahtiessa();
        else if ((kohde == cmbMaksunOtsake || kohde == cmbMaksunOtsake->lineEdit()) && !cmbMaksunOtsake->view()->isVisible())
            tietue::Suojattu([this] { otsakeLahtiessa(); });
    } else if (e->type() == QEvent::KeyPress && (kohde == cmbMaksunOtsake || kohde == cmbMaksunOtsake->lineEdit())) {
        auto *k = static_cast<QKeyEvent *>(e);
        if (k->key() == Qt::Key_D && k->modifiers() == Qt::AltModifier) {
            tietue::Suojattu([this] { poistaOtsake(); });
            return true;
        }
    }
    return QMainWindow::eventFilter(kohde, e);
}

void Laskutusikkuna::closeEvent(QCloseEvent *e)
{
    if (m_ajossa) {
        e->ignore();
        return;
    }
    QMainWindow::closeEvent(e);
}

LaskunYlatiedot Laskutusikkuna::ylatiedot() const
{
    LaskunYlatiedot l;
    l.cmbMaksunOtsake = cmbMaksunOtsake->currentText();
    l.tLaskunPaiva = tLaskunPaiva->text();
    l.tLaskunErapaiva = tLaskunErapaiva->text();
    l.tAiheTeksti = tTilisiirronTeksti->text();
    l.tLisatietoja = tLisatietoja->toPlainText();
    l.chkJasenmaksu = chkJasenmaksu->isChecked();
    l.chkHenkKohtViite = chkHenkKohtViite->isChecked();
    l.chkEiViitetta = chkEiViitetta->isChecked();
    l.chkEiLoppusummaa = chkEiLoppusummaa->isChecked();
    l.chkVainValittuTilinumero = chkVainValittuTilinumero->isChecked();
    for (int i = 0; i < cmbTilinumerot->count(); ++i)
        l.cmbTilinumerot << cmbTilinumerot->itemText(i);
    l.cmbTilinumerotValinta = cmbTilinumerot->currentIndex();
    return l;
}

void Laskutusikkuna::kirjoitaYlatiedot(const LaskunYlatiedot &y)
{
    cmbMaksunOtsake->setEditText(y.cmbMaksunOtsake);
    tLaskunPaiva->setText(y.tLaskunPaiva);
    tLaskunErapaiva->setText(y.tLaskunErapaiva);
    tTilisiirronTeksti->setText(y.tAiheTeksti);
    tLisatietoja->setPlainText(y.tLisatietoja);
    chkJasenmaksu->setChecked(y.chkJasenmaksu);
    chkHenkKohtViite->setChecked(y.chkHenkKohtViite);
    chkEiViitetta->setChecked(y.chkEiViitetta);
    chkEiLoppusummaa->setChecked(y.chkEiLoppusummaa);
    chkVainValittuTilinumero->setChecked(y.chkVainValittuTilinumero);
    cmbTilinumerot->setCurrentIndex(y.cmbTilinumerotValinta);
}

LaskunSaajat Laskutusikkuna::saajat() const
{
    LaskunSaajat s;
    s.valittu = cmbNimet->currentIndex() >= 0;
    s.tunniste = cmbNimet->currentData(Qt::UserRole).toLongLong();
    s.teksti = cmbNimet->currentText();
    s.chkEiPerheellisille = chkEiPerheellisille && chkEiPerheellisille->isChecked();
    s.chkMuille = chkMuille->isChecked();
    return s;
}

QVector<ListaRivi> Laskutusikkuna::nimet(db::Database &d) { return LaskutusNimet(d); }

void Laskutusikkuna::paivaLahtiessa(QLineEdit *kentta)
{
    if (kentta->text().trimmed().isEmpty())
        return;
    const QDate paiva = ParsePaiva(kentta->text());
    if (!paiva.isValid()) {
        Ilmoita(QStringLiteral("Syötetyn päivämäärän muoto ei ole kelvollinen."));
        return;
    }
    kentta->setText(PaivaTekstina(paiva));
    for (const QString &varoitus : PaivaVaroitukset(kentta == tLaskunErapaiva, ParsePaiva(tLaskunPaiva->text()),
                                                    ParsePaiva(tLaskunErapaiva->text()), kello::tanaan()))
        Ilmoita(varoitus);
}

// The entry whose text the user typed becomes the selection; a text found nowhere leaves none.
void Laskutusikkuna::nimiLahtiessa()
{
    const QString teksti = cmbNimet->currentText();
    if (cmbNimet->currentIndex() >= 0 && cmbNimet->itemText(cmbNimet->currentIndex()) == teksti)
        return;
    const int loytyi = cmbNimet->findText(teksti, Qt::MatchFixedString);
    cmbNimet->setCurrentIndex(loytyi);
    if (loytyi < 0)
        cmbNimet->setEditText(teksti);
}

void Laskutusikkuna::taytaNimet(db::Database &d)
{
    if (!m_nimet) {
        m_nimet = new ListaMalli(cmbNimet);
        cmbNimet->setModel(m_nimet);
    }
    m_nimet->aseta(nimet(d));
    cmbNimet->setCurrentIndex(0);
}

void Laskutusikkuna::taytaOtsakkeet()
{
    const QString teksti = cmbMaksunOtsake->currentText();
    auto d = tietue::AvaaKanta();
    cmbMaksunOtsake->clear();
    for (const ListaRivi &r : LaskuOtsakkeet(*d))
        cmbMaksunOtsake->addItem(r.teksti, r.id);
    cmbMaksunOtsake->setCurrentIndex(-1);
    cmbMaksunOtsake->setEditText(teksti);
}

void Laskutusikkuna::otsakeLahtiessa()
{
    auto d = tietue::AvaaKanta();
    if (const auto uusi = MuistaOtsake(*d, cmbMaksunOtsake->currentText())) {
        const QString teksti = cmbMaksunOtsake->currentText();
        cmbMaksunOtsake->addItem(uusi->teksti, uusi->id);
        cmbMaksunOtsake->setEditText(teksti);
    }
}

void Laskutusikkuna::poistaOtsake()
{
    const int i = cmbMaksunOtsake->currentIndex();
    if (i < 0 || cmbMaksunOtsake->itemText(i) != cmbMaksunOtsake->currentText()) {
        Ilmoita(QStringLiteral("Poistettavaa otsaketekstiä ei ole valittuna."));
        return;
    }
    if (!Kysy(QStringLiteral("Haluatko poistaa '%1' tietokannasta?").arg(cmbMaksunOtsake->itemText(i))))
        return;
    PoistaOtsake(*tietue::AvaaKanta(), cmbMaksunOtsake->itemData(i).toLongLong());
    cmbMaksunOtsake->setEditText(QString());
    taytaOtsakkeet();
}

void Laskutusikkuna::kohdista(const QString &nimi)
{
    if (nimi.isEmpty())
        return;
    if (auto *w = findChild<QWidget *>(nimi)) {
        w->setFocus();
        if (auto *t = qobject_cast<QLineEdit *>(w))
            t->selectAll();
    }
}

void Laskutusikkuna::lisaa()
{
    if (m_ajossa)
        return;
    nimiLahtiessa();
    const bool jasenikkuna = JasenrekisteriAuki();
    Laskutustulos tulos;
    const bool valmis = ajaPalkilla(m_ajossa, ProgressBar1, cKeskeyta, m_ajonAikanaPois,
                                    [&](const Ajo &ajo) { tulos = aja(ajo, jasenikkuna); });
    if (!valmis)
        return;
    if (tulos.virhe) {
        Ilmoita(tulos.virhe->viesti);
        kohdista(tulos.virhe->kentta);
        return;
    }
    Ilmoita(tulos.viesti);
}

void Laskutusikkuna::avaaToinen(Laskuikkuna laji)
{
    if (laji == Laskuikkuna::Perhe)
        AvaaPerhelaskut(parentWidget());
    else if (laji == Laskuikkuna::Ominaisuus)
        AvaaOminaisuuslaskut(parentWidget());
}

void Laskutusikkuna::historiaan()
{
    if (m_ajossa)
        return;
    QString viesti;
    const bool valmis = ajaPalkilla(m_ajossa, ProgressBar1, cKeskeyta, m_ajonAikanaPois, [&](const Ajo &ajo) {
        viesti = SiirraHistoriaan(ajo, m_asetelma.laji);
    });
    if (valmis)
        Ilmoita(viesti);
}

void Laskutusikkuna::poista()
{
    if (m_ajossa)
        return;
    QString viesti;
    const bool jasenikkuna = JasenrekisteriAuki();
    const bool valmis = ajaPalkilla(m_ajossa, ProgressBar1, cKeskeyta, m_ajonAikanaPois, [&](const Ajo &ajo) {
        viesti = PoistaLisatytLaskut(ajo, m_asetelma.laji, jasenikkuna);
    });
    if (valmis && !viesti.isEmpty())
        Ilmoita(viesti);
}

void Laskutusikkuna::lahetaSahkopostilla()
{
    if (m_ajossa)
        return;
    nimiLahtiessa();
    Laskujenlahetys l;
    l.saajat = saajat();
    l.vainSmtp = m_asetelma.laji == Laskuikkuna::Myyntilaji;
    // The window stays usable while the first message waits for its turn.
    l.odota = [](int ms) {
        QEventLoop silmukka;
        QTimer::singleShot(ms, &silmukka, &QEventLoop::quit);
        silmukka.exec();
    };
    Lahetystulos tulos;
    ajaPalkilla(m_ajossa, ProgressBar1, cKeskeyta, m_ajonAikanaPois, [&](const Ajo &ajo) { tulos = LahetaLaskut(ajo, l); });
    if (!tulos.viesti.isEmpty())
        Ilmoita(tulos.viesti);
}

void Laskutusikkuna::tulostaLista(const QString &tiedosto, const QString &otsikko)
{
    if (!NaytaTulostusasetukset(false, this))
        return;
    try {
        AjaListaraportti(tiedosto, otsikko, QStringLiteral("+{jm.jmLaskunumero}"));
    } catch (const RaporttiVirhe &e) {
        IlmoitaVirhe(QStringLiteral("Virhe tulostettaessa raporttia: ") + e.viesti());
    }
}

void Laskutusikkuna::tulosta(bool numerosta)
{
    if (m_ajossa)
        return;
    nimiLahtiessa();
    const LaskunSaajat s = saajat();
    Laskujentulostus t;
    t.henkilo = s.valittu && s.tunniste > 0 ? s.tunniste : 0;
    t.jatkaNumerosta = numerosta;
    t.myyntilajeittain = m_asetelma.laji == Laskuikkuna::Myyntilaji;
    Tulostuskysymykset k;
    k.laskumalli = [this] { return KysyLaskumalli(this); };
    k.jarjestys = [this] {
        frmTulJarjValinta w(0, this);
        w.exec();
        return Tulostusjarjestys(w.iTulJarj);
    };
    k.tulostusasetukset = [this] {
        if (!NaytaTulostusasetukset(false, this))
            return Tulostuspaikka::Peruttu;
        return TulostusLaite == Raporttiajo::Tulostin ? Tulostuspaikka::Tulostin : Tulostuspaikka::Asiakirja;
    };
    ajaPalkilla(m_ajossa, ProgressBar1, cKeskeyta, m_ajonAikanaPois, [&](const Ajo &ajo) {
        const auto kohde = [](Raporttiajo &r) {
            r.Destination = TulostusLaite;
            r.CopiesToPrinter = Kopiot;
        };
        try {
            TulostaLaskut(ajo, t, k, LaskuraportinTulostajat(Raportti(), ajo, kohde));
        } catch (const RaporttiVirhe &e) {
            IlmoitaVirhe(QStringLiteral("Virhe tulostettaessa raporttia: ") + e.viesti());
        }
    });
}
