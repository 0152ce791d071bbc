#pragma once

class MenuDocument;

// The document kept in the working folder between runs: loaded at start-up, written by the autosave,
// at exit and before sending.
namespace WorkingCopy {

// Start-up: makes the working folder, points the document at the working prefix and loads the files
// found there, the previous run's document.
void open(MenuDocument& document);

// Points the document back at the working prefix and writes all its component files there. A file
// that cannot be written is passed over.
void save(MenuDocument& document);

} // namespace WorkingCopy
