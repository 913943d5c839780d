// The program's own folder at first start: the folder, the template of a new club, the
// demonstration database and the e-mail invoice templates.
#pragma once

// Makes whatever of these is missing; an existing file is never touched. Each database file is
// built under a temporary name and renamed when whole, so an interrupted start leaves no half
// file behind. A failure is told to the user and start-up goes on.
void VarmistaOhjelmakansio();
