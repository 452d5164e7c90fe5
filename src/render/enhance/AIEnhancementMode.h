#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// Ways of improving a picture.
enum class AIEnhancementMode { automatic, sharpen, denoise, enhanceColors, upscale };

inline constexpr EnumTable<AIEnhancementMode, 5> aiEnhancementModes = {{
    {AIEnhancementMode::automatic, "auto", Kestrio::marked("Auto")},
    {AIEnhancementMode::sharpen, "sharpen", Kestrio::marked("Sharpen")},
    {AIEnhancementMode::denoise, "denoise", Kestrio::marked("Denoise")},
    {AIEnhancementMode::enhanceColors, "enhanceColors", Kestrio::marked("Enhance Colours")},
    {AIEnhancementMode::upscale, "upscale", Kestrio::marked("Upscale")},
}};
constexpr const auto& enumTable(AIEnhancementMode) {
    return aiEnhancementModes;
}

}  // namespace kestrio
