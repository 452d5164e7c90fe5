#pragma once

#include "app/shell/EditorWindowCoordinator.h"
#include "app/shell/Toasts.h"
#include "core/Task.h"
#include "platform/Alerts.h"
#include "settings/AppSettingsService.h"

namespace kestrio {

/// Ends the program when the user asks for it: waits for exports under way, and asks once about all
/// documents with changes that were never exported. Main thread.
class Quitting : public QObject {
    Q_OBJECT

  public:
    struct Collaborators {
        std::shared_ptr<EditorWindowCoordinator> editors;
        std::shared_ptr<AppSettingsServiceProtocol> settings;
        std::shared_ptr<Alerts> alerts;
        std::shared_ptr<Toasts> toasts;
    };

    /// `end` ends the program without asking.
    Quitting(Collaborators collaborators, std::function<void()> end, QObject* parent = nullptr);
    ~Quitting() override;

    /// Nothing happens while the user is being asked already.
    void request();

  private:
    enum class Answer { save, discard, cancel };

    Task<> run();
    /// True where the program may end.
    Task<bool> settleDocuments();
    Task<> waitForExports();
    Task<Answer> ask(std::vector<OpenDocument> documents);
    Task<bool> saveAll(std::vector<OpenDocument> documents);
    Task<> reportFailure(OpenDocument document, QString reason);

    Collaborators with_;
    std::function<void()> end_;
    std::stop_source stop_;
    bool isUnderWay_ = false;
};

}  // namespace kestrio
