#pragma once

#include <string>

#include "platform/host.h"
#include "platform/virtual/faulty_files.h"
#include "platform/virtual/line.h"
#include "platform/virtual/world.h"

namespace platform::virt {

class CountedSound : public Sound {
  public:
    void Beep() override { ++beeps; }
    int beeps = 0;
};

class FixedInstance : public Instance {
  public:
    Claim TryClaim(const std::filesystem::path&) override { return answer; }
    Claim answer = Claim::Mine;
};

class FixedProbe : public PortProbe {
  public:
    PortFacts Look(const std::string&) override { return facts; }
    std::string HolderOf(const std::string&) override {
        ++searches;
        return holder;
    }
    PortFacts facts;
    std::string holder;
    int searches = 0;  // for a holder
};

// A whole virtual machine for the program: virtual time, an in-memory line, files that can fail, a counted beep.
// `realFiles` does the work of the files.
struct VirtualHost {
    explicit VirtualHost(Files& realFiles) : files(realFiles) {}

    Host Get() { return {world, world, line.Port(), probe, files, sound, instance}; }

    World world;
    Line line{world};
    FixedProbe probe;
    FaultyFiles files;
    CountedSound sound;
    FixedInstance instance;
};

}  // namespace platform::virt
