#include "scrolling/capture/StitchHint.h"

#include "core/Localisation.h"

namespace kestrio {

QString hintFor(const ScrollingStitchOutcome& outcome) {
    using enum ScrollingStitchDisposition;
    switch (outcome.disposition) {
        case horizontalMotion:
            return Kestrio::tr("Scroll up and down only.");
        case matchFailed:
        case discontinuity:
            break;
        case seeded:
        case appended:
        case duplicate:
        case noMotion:
        case outputLimitReached:
            return {};
    }
    switch (outcome.obstacle) {
        case StitchObstacle::movedBack:
        case StitchObstacle::aboveStart:
            return Kestrio::tr("Scroll down to go on.");
        case StitchObstacle::ambiguous:
            return Kestrio::tr("The rows repeat. Scroll on slowly.");
        case StitchObstacle::none:
        case StitchObstacle::noEvidence:
        case StitchObstacle::contradictory:
        case StitchObstacle::gap:
        case StitchObstacle::otherSize:
            break;
    }
    return Kestrio::tr("Too fast. Scroll back a little.");
}

}  // namespace kestrio
