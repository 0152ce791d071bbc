#pragma once

#include <QString>

// Where the web translation service answers: scheme, host and port only ("http://127.0.0.1:8080").
// The client adds the page and the query itself.
namespace TranslationService {

// $QUORVEL_TRANSLATE_URL when set, else the saved setting; empty when neither is set.
QString address();

// The setting alone, as the user saved it; the environment is not looked at.
QString savedAddress();
// An empty address removes the setting. Throws a Fault when the setting could not be stored.
void saveAddress(const QString& address);

// True for "http" or "https", a host and at most a port: no user, path, query or fragment.
bool isValidAddress(const QString& address);

} // namespace TranslationService
