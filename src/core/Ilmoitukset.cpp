#include "core/Ilmoitukset.h"

#include "core/MainModule.h"
#include "platform/dialogs.h"

void Ilmoita(const QString &text) { dlg::current().message(text, dlg::Icon::Information, MainModule::AppName); }

void IlmoitaVirhe(const QString &text) { dlg::current().message(text, dlg::Icon::Stop, MainModule::AppName); }

bool Kysy(const QString &text)
{
    return dlg::current().question(text, MainModule::AppName) == dlg::Answer::Yes;
}
