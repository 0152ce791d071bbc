#pragma once

#include "SafeWrite.h"

class MenuDocument;

// The document kept in the working folder between runs: loaded at start-up, written by the autosave,
// at exit and before sending.
namespace WorkingCopy {

// Start-up: makes the working folder, points the document at the working prefix and loads the files
// found there, the previous run's document, finishing or undoing a save that was cut off.
void open(MenuDocument& document);

// Points the document back at the working prefix and writes all its component files there. Returns
// what could not be written and why; the working copy is then the one saved before.
WriteFailures save(MenuDocument& document);

} // namespace WorkingCopy
