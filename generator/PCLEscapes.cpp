#include "generator/PCLEscapes.h"

namespace PCLEscapes {

namespace {

void rowData(VRKPrintStream& s, const void* bytes, std::size_t count) {
    s.WriteInt(static_cast<long long>(count));
    s.Put('W');
    s.WriteBytes(bytes, count);
}

}  // namespace

void SourceSize(VRKPrintStream& s, long long width, long long height) {
    s.Write("\x1b*r");
    s.WriteInt(width);
    s.Put('s');
    s.WriteInt(height);
    s.Put('T');
}

void DestinationSize(VRKPrintStream& s, long long width, long long height) {
    s.Write("\x1b*t");
    s.WriteInt(width);
    s.Put('h');
    s.WriteInt(height);
    s.Put('V');
}

void TransferRow(VRKPrintStream& s, const void* bytes, std::size_t count) {
    s.Write("\x1b*b");
    rowData(s, bytes, count);
}

void TransferRow(VRKPrintStream& s, int mode, const void* bytes, std::size_t count) {
    s.Write("\x1b*b");
    s.WriteInt(mode);
    s.Put('m');
    rowData(s, bytes, count);
}

}  // namespace PCLEscapes
