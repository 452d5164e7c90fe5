#pragma once

#include <QCoreApplication>
#include <QString>

namespace kestrio {

/// The texts of the program in the user's language: `Kestrio::tr("Copy")`, for plurals
/// `Kestrio::tr("%n files", nullptr, count)`, in QML `qsTranslate("Kestrio", "Copy")`. The English
/// text is the key of the one translation table, which is updated from these calls, so they hold
/// literals. The class bears the name of the table's context, by which the update knows the calls
/// even where it does not see this declaration.
class Kestrio {
    Q_DECLARE_TR_FUNCTIONS(Kestrio)

  public:
    /// Marks the English text of a table's row, which tr() translates when it is shown.
    static constexpr const char* marked(const char* english) { return english; }
};

}  // namespace kestrio
