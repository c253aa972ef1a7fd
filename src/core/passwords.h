#pragma once

#include <QString>

// Passwords are kept hashed (PBKDF2-HMAC-SHA256 with a random salt); what a user types is
// verified against the stored text. A stored text in the clear, from an older company, is
// compared as it stands.
namespace ventarix::passwords {

QString Hash(const QString& plain);
bool Verify(const QString& typed, const QString& stored);
bool IsHashed(const QString& stored);

}  // namespace ventarix::passwords
