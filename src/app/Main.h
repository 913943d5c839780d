// The start of the program, from reading the settings file to the shown main window.
#pragma once

#include <functional>
#include <memory>

class frmMain;

struct MainValinnat {
    // How long the splash stays before the database is opened.
    int splashMs = 2000;
    // Opens the two settings windows modally, for the move of older settings into the database;
    // frmAsetukset and then frmAsetuksetLisa unless another opener is given.
    std::function<void()> avaaAsetukset;
};

// Runs the start in its order and returns the shown main window, or null when the program ends
// before it (wrong password, a locked database, settings to be checked first).
std::unique_ptr<frmMain> Main(const MainValinnat &valinnat = {});
