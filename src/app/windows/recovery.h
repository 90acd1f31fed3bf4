#pragma once

/// Begins to keep a recovery copy of the network in the user's data folder.
void startrecovery();
/// A step of the main timer: writes the copy, or removes it, as the network stands.
void keeprecovery();
/// Asks whether to open what a run that was stopped has left behind, and opens it as a network with
/// changes.
void offerrecovery();
/// Brings the copy up to date at once: the program is about to be stopped from outside.
void saverecovery();
/// The program ends, and the user has decided what becomes of the network: the copy goes.
void endrecovery();
