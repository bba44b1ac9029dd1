#include "host/output/VRKSender.h"

#include "host/output/VRKInPlaceSender.h"
#include "host/output/VRKSerialSender.h"
#include "host/output/VRKSocketSender.h"
#include "host/output/VRKSpoolerSender.h"

std::unique_ptr<VRKSender> VRKSender::Create(const VRKDestination& destination,
                                             const VRKSendOptions& options) {
    switch (destination.kind) {
        case VRKDestination::Kind::kStandardOutput:
            return std::make_unique<VRKInPlaceSender>("-");
        case VRKDestination::Kind::kSocket:
            return std::make_unique<VRKSocketSender>(destination.host, destination.port, options);
        case VRKDestination::Kind::kSpooler:
            return std::make_unique<VRKSpoolerSender>(destination.queue, options);
        case VRKDestination::Kind::kSerial:
            return std::make_unique<VRKSerialSender>(destination.path, destination.baud,
                                                     destination.flow, options);
        case VRKDestination::Kind::kPath:
            break;
    }
    return std::make_unique<VRKInPlaceSender>(destination.path);
}
