#include "app/instance/verbs/CaptureVerb.h"

#include "app/instance/verbs/PathCheck.h"
#include "core/Localisation.h"

namespace kestrio {

bool isDelay(int seconds) {
    return seconds >= 0 && seconds <= longestDelay;
}

QString faultOf(const CaptureVerb& verb) {
    if (!isDelay(verb.delay)) {
        return Kestrio::tr("the delay must be 0 to %1 seconds").arg(longestDelay);
    }
    return verb.output.isEmpty() ? QString() : faultOfOutputName(verb.output);
}

}  // namespace kestrio
