#pragma once

#include <QString>

/// A message in two parts: what everybody reads, and what only those understand who look for its reason.
struct MessageWords
{
    QString words;
    QString details;
};

/// Cut where the part for administrators begins: behind the first empty line, else with the statement that
/// failed.
MessageWords foldedMessage(const QString &text);

/// The same in plain words: what the database or its driver says goes to the details, and the words tell what
/// has happened and what to do.
MessageWords plainMessage(const QString &text);
