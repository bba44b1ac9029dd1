#include "marshal/VRKMarshalHPGLProperties.h"

#include <cstdio>
#include <tuple>

#include "host/core/VRKInterfaceRegistration.h"
#include "host/core/VRKMarshallableCorba.h"
#include "host/core/VRKTIEMarshallableCorba.h"
#include "host/core/VRKTieFactory.h"
#include "host/core/VRKUnmarshalErrorLog.h"
#include "marshal/VRKMarshalFields.h"
#include "marshal/VRKMarshalRecord.h"
#include "properties/VRKPrintHPGLProperties.h"

VRK_DEFINE_CLASS(VRKMarshalHPGLProperties, VRKDataExtension, "VRKPrintHPGLProperties", "Print")

namespace {

constexpr const char* kRecordClass = "VRKPrintHPGLProperties";

using Record = VRKPrintHPGLProperties;

// After the pen count: the three plot options, then each counted pen.
constexpr auto kOptions =
    std::tuple{VRKMarshalField(&Record::GetOrigin, &Record::SetOrigin),
               VRKMarshalField(&Record::GetRelativeMovePen, &Record::SetRelativeMovePen),
               VRKMarshalField(&Record::GetPrintThickness, &Record::SetPrintThickness)};
constexpr auto kPen =
    std::tuple{&VRKPen::red, &VRKPen::green, &VRKPen::blue, &VRKPen::width, &VRKPen::enable};

const VRKInterfaceRegistration registration(VRKExtensionEntry<VRKMarshalHPGLProperties>(
    VRKMarshallableCorba::kInterfaceName, &CreateTIEVRKMarshallableCorbaVRKMarshalHPGLProperties));

}  // namespace

extern "C" VRKBaseUnknown* CreateTIEVRKMarshallableCorbaVRKMarshalHPGLProperties(
    VRKDataExtension* implementation) {
    return VRKMakeTie<VRKTIEMarshallableCorba, VRKMarshalHPGLProperties>(implementation);
}

int VRKMarshalHPGLProperties::Marshal(int bufferId, int creationFlag) {
    return VRKMarshalRecord<Record>(
        *this, bufferId, creationFlag, kRecordClass, [&](Record& record) {
            const VRKPenTable& table = record.GetPenTable();
            ExportMarshalBuffer(bufferId, table.Count(), VRKMarshalFieldAccess::kValueLength);
            VRKExportFields(bufferId, record, kOptions);
            // A count above 32 can only come from a caller's error; only the slots that exist are
            // written, and the unmarshaller refuses the count.
            for (int i = 0; i < table.UsedSlots(); ++i) {
                VRKExportFields(bufferId, table.Slots()[i], kPen);
            }
            return true;
        });
}

VRKBaseUnknown* VRKMarshalHPGLProperties::Unmarshal(int bufferId, VRKBaseUnknown* given,
                                                    int creationFlag) {
    return VRKUnmarshalRecord<Record>(
        bufferId, given, creationFlag, kRecordClass, [&](Record& record) {
            // The table has 32 slots, so a stream that counts more pens (or fewer than none) is
            // refused before anything of the record changes.
            VRKPenTable table = record.GetPenTable();
            int count = table.Count();
            ImportMarshalBuffer(bufferId, &count, VRKMarshalFieldAccess::kValueLength);
            if (count < 0 || count > VRKPrintHPGLProperties::kPenSlots) {
                std::printf("Unmarshal VRKPrintHPGLProperties: pen count %d outside 0 to 32\n",
                            count);
                std::fflush(stdout);
                VRKSysMshLogUnmarshalError("pen_table", kRecordClass, bufferId,
                                           "Pen count out of range", nullptr);
                return false;
            }
            table.SetCount(count);
            VRKImportFields(bufferId, record, kOptions);
            for (int i = 0; i < count; ++i) {
                VRKImportFields(bufferId, table.Slots()[i], kPen);
            }
            record.SetPenTable(table);
            return true;
        });
}
