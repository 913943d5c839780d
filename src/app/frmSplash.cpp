#include "app/frmSplash.h"

#include "core/Kaynnistys.h"
#include "core/MainModule.h"
#include "core/ui/Kuvakkeet.h"

#include <QApplication>
#include <QEvent>
#include <QEventLoop>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

using namespace MainModule;

frmSplash::frmSplash(int viiveMs, QWidget *parent) : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(AppName);
    setFocusPolicy(Qt::StrongFocus);

    Frame1 = new QFrame(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Frame1->setFrameShape(QFrame::StyledPanel);
    Frame1->setFrameShadow(QFrame::Raised);
    Frame1->installEventFilter(this);

    auto *kuva = new QLabel(Frame1);
    kuva->setPixmap(Kuvakkeet::tunnus(72));
    kuva->setAlignment(Qt::AlignTop | Qt::AlignHCenter);

    lblProductName = new QLabel(AppName, Frame1);
    lblProductName->setObjectName(QStringLiteral("lblProductName"));
    QFont iso = lblProductName->font();
    iso.setPointSizeF(iso.pointSizeF() * 2.4);
    iso.setBold(true);
    lblProductName->setFont(iso);

    lblRegName = new QLabel(Frame1);
    lblRegName->setObjectName(QStringLiteral("lblRegName"));
    QFont seura = lblRegName->font();
    seura.setPointSizeF(seura.pointSizeF() * 1.2);
    lblRegName->setFont(seura);
    lblRegName->hide();

    auto *kuvaus = new QLabel(QStringLiteral("Yhdistyksen jäsenrekisteri ja laskutus"), Frame1);
    lblVersion = new QLabel(Frame1);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));
    auto *odota = new QLabel(QStringLiteral("Käynnistetään…"), Frame1);
    odota->setStyleSheet(QStringLiteral("color: palette(mid);"));

    auto *tekstit = new QVBoxLayout;
    tekstit->setSpacing(4);
    tekstit->addWidget(lblProductName);
    tekstit->addWidget(lblRegName);
    tekstit->addWidget(kuvaus);
    tekstit->addStretch();
    tekstit->addWidget(lblVersion);
    tekstit->addWidget(odota);

    auto *sisalto = new QHBoxLayout(Frame1);
    sisalto->setContentsMargins(24, 22, 28, 18);
    sisalto->setSpacing(22);
    sisalto->addWidget(kuva);
    sisalto->addLayout(tekstit, 1);

    auto *paa = new QVBoxLayout(this);
    paa->setContentsMargins(0, 0, 0, 0);
    paa->addWidget(Frame1);
    setFixedSize(440, 190);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setSingleShot(true);
    Timer1->setInterval(viiveMs);
    connect(Timer1, &QTimer::timeout, this, &frmSplash::lopetaOdotus);
}

bool frmSplash::Form_Load()
{
    lblVersion->setText(QStringLiteral("Versio ") + versionText());
    lblProductName->setText(AppName);

    if (const QScreen *naytto = QGuiApplication::primaryScreen())
        move(naytto->availableGeometry().center() - rect().center());
    show();
    raise();
    activateWindow();
    setFocus();

    QEventLoop odotus;
    m_odotus = &odotus;
    Timer1->start();
    odotus.exec();
    m_odotus = nullptr;
    Timer1->stop();

    TarkistaValuuttatunnus(JarjestelmanValuuttatunnus());
    if (MultiDb)
        ValitseSeura();
    const bool jatka = AvaaTietokantaJaLueSeura();
    lblRegName->setText(RegName);
    lblRegName->setVisible(!RegName.isEmpty());
    QApplication::processEvents();
    hide();
    return jatka;
}

void frmSplash::lopetaOdotus()
{
    if (m_odotus)
        m_odotus->quit();
}

bool frmSplash::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Frame1 && event->type() == QEvent::MouseButtonPress)
        lopetaOdotus();
    return QWidget::eventFilter(watched, event);
}

void frmSplash::keyPressEvent(QKeyEvent *) { lopetaOdotus(); }

void frmSplash::mousePressEvent(QMouseEvent *) { lopetaOdotus(); }
