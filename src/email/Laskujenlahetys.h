// Sending the open batch by e-mail, as every invoice window's "Sähköposti" does: the invoice
// template merged with each chosen member's first unsent invoice, sent through one sender, and
// jmEmailed set exactly for the invoices the server took. Pressing again retries the rest.
#pragma once

#include "invoicing/Laskulomake.h"
#include "platform/ajo.h"
#include "platform/mail.h"

#include <functional>
#include <optional>

// How long the first message of a press waits with EmailPerMin messages a minute: 60000 ms
// divided by it, truncated; 0 (no wait) when EmailPerMin is 0 or less.
int Lahetysvali(qint64 viestejaMinuutissa);

// Waits the given milliseconds; the window keeps its event loop turning, tests record the call.
using Odotus = std::function<void(int millisekuntia)>;

struct Laskujenlahetys {
    LaskunSaajat saajat;             // the name box: one person, an attribute or everybody
    std::optional<mail::Settings> reitti; // the mail route; none: the settings in force
    bool vainSmtp = false;           // the sales-type window sends by SMTP whatever the settings say
    Odotus odota;                    // none: no wait
};

struct Lahetystulos {
    int lahetetty = 0;
    int epaonnistui = 0;
    bool keskeytetty = false;
    QString viesti; // what the window shows at the end
};

// Sends and marks; every jmEmailed is written by itself right after its send, so a stop or a
// crash keeps what went out. A stop (Keskeytetty from the run's progress) ends the run between
// two messages and says so above the counts.
Lahetystulos LahetaLaskut(const Ajo &ajo, const Laskujenlahetys &l);

// The closing message of a run.
QString LahetyksenYhteenveto(int lahetetty, int epaonnistui);
