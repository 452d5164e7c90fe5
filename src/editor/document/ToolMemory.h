#pragma once

#include "annotation/editing/AnnotationViewModel.h"
#include "render/stores/TemplateService.h"

namespace kestrio {

/// Lets each drawing tool keep the colour, stroke and fill that were chosen for it, for later
/// documents and runs too. Choices made with the select tool belong to what is selected. Main
/// thread.
class ToolMemory : public QObject {
    Q_OBJECT

  public:
    ToolMemory(AnnotationViewModel& annotations, std::shared_ptr<UserDefaults> userDefaults);

  private:
    void recall();
    void remember();

    AnnotationViewModel& annotations_;
    TemplateService templates_;
};

}  // namespace kestrio
