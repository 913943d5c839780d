#include "email/ui/frmEmailPreview.h"

#include "core/Ilmoitukset.h"
#include "email/Sahkopostilaskut.h"
#include "platform/dialogs.h"

#include <QAction>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

// The merge joins its rows with CR LF; the box shows plain lines.
QString naytettavaksi(const QString &teksti) { return QString(teksti).replace(QStringLiteral("\r\n"), QStringLiteral("\n")); }

} // namespace

frmEmailPreview::frmEmailPreview(QWidget *parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmEmailPreview"));
    setWindowTitle(QStringLiteral("Vonari - Sähköpostilaskun esikatselu"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    tLaskuTeksti = new QPlainTextEdit(this);
    tLaskuTeksti->setObjectName(QStringLiteral("tLaskuTeksti"));
    tLaskuTeksti->setReadOnly(true);
    // A long payment terms text is seen whole; the columns of the template fit the width.
    tLaskuTeksti->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    tLaskuTeksti->setMinimumWidth(tLaskuTeksti->fontMetrics().horizontalAdvance(QString(78, QLatin1Char('x'))));
    tLaskuTeksti->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    const auto napit = tietue::SiirtoPainikkeet(this, m_komennot, [this](tietue::Siirto s) { siirry(s); });
    cEnsimmainen = napit[0];
    cEdellinen = napit[1];
    cSeuraava = napit[2];
    cViimeinen = napit[3];
    cClose = tietue::KomentoPainike(this, m_komennot, "cClose", QStringLiteral("Sulje"), QStringLiteral("Sulje esikatselu"), {},
                                    [this] { close(); });
    lblTietue = new QLabel(this);
    lblTietue->setObjectName(QStringLiteral("lblTietue"));
    lblTietue->setMinimumWidth(110);
    lblTietue->setAlignment(Qt::AlignCenter);

    auto *rivi = new QHBoxLayout;
    rivi->addWidget(cEnsimmainen);
    rivi->addWidget(cEdellinen);
    rivi->addWidget(lblTietue);
    rivi->addWidget(cSeuraava);
    rivi->addWidget(cViimeinen);
    rivi->addStretch(1);
    rivi->addWidget(cClose);
    auto *asettelu = new QVBoxLayout(this);
    asettelu->addWidget(tLaskuTeksti, 1);
    asettelu->addLayout(rivi);
    resize(760, 620);
}

frmEmailPreview *frmEmailPreview::AvaaLaskut(QWidget *parent)
{
    if (!tietue::TietokantaAsetettu())
        return nullptr;
    const Sahkopostiteksti pohja = LueLaskupohja();
    if (!pohja.onnistui()) {
        Ilmoita(pohja.viesti);
        return nullptr;
    }
    QList<qint64> laskut;
    if (!tietue::Suojattu([&] { laskut = AvoimetLaskut(*tietue::AvaaKanta()); }))
        return nullptr;
    auto *w = new frmEmailPreview(parent);
    w->m_pohja = pohja.teksti;
    w->m_laskut = laskut;
    w->m_kohta = laskut.isEmpty() ? -1 : 0;
    w->nayta();
    w->show();
    return w;
}

frmEmailPreview *frmEmailPreview::NaytaTeksti(QWidget *parent, const QString &teksti)
{
    auto *w = new frmEmailPreview(parent);
    for (QToolButton *b : {w->cEnsimmainen, w->cEdellinen, w->cSeuraava, w->cViimeinen}) {
        b->defaultAction()->setEnabled(false);
        b->hide();
    }
    w->lblTietue->hide();
    w->tLaskuTeksti->setPlainText(naytettavaksi(teksti));
    w->show();
    return w;
}

void frmEmailPreview::siirry(tietue::Siirto s)
{
    const int viimeinen = int(m_laskut.size()) - 1;
    using S = tietue::Siirto;
    if ((s == S::Edellinen && m_kohta <= 0) || (s == S::Seuraava && m_kohta >= viimeinen)) {
        dlg::current().beep();
        return;
    }
    if (viimeinen < 0)
        return;
    switch (s) {
    case S::Ensimmainen: m_kohta = 0; break;
    case S::Edellinen: --m_kohta; break;
    case S::Seuraava: ++m_kohta; break;
    case S::Viimeinen: m_kohta = viimeinen; break;
    }
    nayta();
}

void frmEmailPreview::nayta()
{
    if (m_kohta < 0) {
        tLaskuTeksti->clear();
        lblTietue->setText(QStringLiteral("Ei laskuja"));
        return;
    }
    lblTietue->setText(QStringLiteral("Lasku %1 / %2").arg(m_kohta + 1).arg(m_laskut.size()));
    tietue::Suojattu([this] {
        tLaskuTeksti->setPlainText(naytettavaksi(AvoimenLaskunTeksti(*tietue::AvaaKanta(), m_pohja, m_laskut[m_kohta])));
    });
}
