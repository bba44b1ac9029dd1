#pragma once

// What a job played into a recording generator does, for the tests of the job player.

#include <sstream>
#include <string>

#include "host/job/VRKJobPlayer.h"
#include "support/RecordingGenerator.h"

// The calls a generator saw, one a line.
inline std::string callsOf(const RecordingGenerator& generator) {
    std::string out;
    for (const std::string& call : generator.calls) {
        out += call + "\n";
    }
    return out;
}

// What a job does: the calls the generator saw, one a line, and "error: FILE:LINE: message" at
// the end when the job was refused.
inline std::string play(const std::string& job, RecordingGenerator& generator,
                        const std::string& folder = "") {
    VRKJobPlayer player(generator);
    std::istringstream in(job);
    const bool ok = player.Play(in, "JOB", folder);
    std::string out = callsOf(generator);
    if (!ok) {
        out += "error: " + player.GetError().ToString() + "\n";
    } else if (!player.GetError().message.empty()) {
        out += "success with a message: " + player.GetError().message + "\n";
    }
    return out;
}

inline std::string play(const std::string& job) {
    RecordingGenerator generator;
    return play(job, generator);
}

// Only the error of a job, or "" when it succeeded.
inline std::string errorOf(const std::string& job) {
    RecordingGenerator generator;
    VRKJobPlayer player(generator);
    std::istringstream in(job);
    return player.Play(in, "JOB", "") ? std::string() : player.GetError().ToString();
}

// A job with `line` between Begin and End.
inline std::string errorOfLine(const std::string& line) {
    return errorOf("Begin\n" + line + "\nEnd\n");
}

inline const std::string kBeginDefaults = "Begin w=210 h=297 o=1 r=0 c=0 m=0,0,0,0 t=0\n";
