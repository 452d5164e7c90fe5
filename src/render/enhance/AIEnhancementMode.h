#pragma once

#include "core/EnumTable.h"

namespace kestrio {

/// Ways of improving a picture.
enum class AIEnhancementMode { automatic, sharpen, denoise, enhanceColors, upscale };

inline constexpr EnumTable<AIEnhancementMode, 5> aiEnhancementModes = {{
    {AIEnhancementMode::automatic, "auto", "Auto"},
    {AIEnhancementMode::sharpen, "sharpen", "Sharpen"},
    {AIEnhancementMode::denoise, "denoise", "Denoise"},
    {AIEnhancementMode::enhanceColors, "enhanceColors", "Enhance Colors"},
    {AIEnhancementMode::upscale, "upscale", "Upscale"},
}};
constexpr const auto& enumTable(AIEnhancementMode) {
    return aiEnhancementModes;
}

}  // namespace kestrio
