#include "host/input/VRKJobDocumentReader.h"

#include "host/job/VRKJobPlayer.h"
#include "host/job/VRKJobSource.h"
#include "host/job/VRKJobVerbs.h"

bool VRKJobDocumentReader::Recognizes(std::string_view head) const {
    std::size_t i = 0;
    while (i < head.size()) {
        const char c = head[i];
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n') {
            ++i;
        } else if (c == '#') {
            const std::size_t end = head.find('\n', i);
            if (end == std::string_view::npos) {
                return false;
            }
            i = end + 1;
        } else {
            break;
        }
    }
    std::size_t end = i;
    while (end < head.size() && head[end] != ' ' && head[end] != '\t' && head[end] != '\r' &&
           head[end] != '\n' && head[end] != '#') {
        ++end;
    }
    const std::string_view word = head.substr(i, end - i);
    // A word cut by the end of the head is not a verb known for sure.
    if (word.empty() || end == head.size()) {
        return false;
    }
    return VRKJobVerbs::Find(word, nullptr) != nullptr;
}

bool VRKJobDocumentReader::Play(VRKDocumentInput& input, VRKPrintGenerator& generator,
                                const VRKDocumentOptions& options, VRKDocumentResult& result) {
    if (!options.layoutFromPrinter &&
        (options.layout.form.has_value() || options.layout.fit || options.layout.landscape ||
         options.layout.margins != 0.0f)) {
        result.warnings.push_back(input.GetName() +
                                  ": a job file sets its own pages; --form, --landscape, --fit "
                                  "and --margins apply to drawings and are not used");
    }
    if (options.stats) {
        result.warnings.push_back(input.GetName() +
                                  ": the pen's travel is measured for drawings, not job files");
    }
    VRKJobPlayer player(generator);
    std::unique_ptr<VRKJobSource> source = input.MakeJobSource();
    if (!player.PlaySource(*source, input.GetName(), input.GetFolder())) {
        result.error = player.GetError().ToString();
        return false;
    }
    return true;
}
