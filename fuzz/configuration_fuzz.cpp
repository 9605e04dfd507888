// Fuzzes the reader of the configuration file and writes the result back. The input is the file.

#include <string>

#include "base/text.h"
#include "fuzz_world.h"
#include "settings/configuration.h"
#include "settings/short_text.h"

using namespace tvx;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  FuzzFiles files(AsText(data, size));
  Configuration read;
  Require(ReadConfiguration(&read, &files).ok());
  bool complete = true;
  for (const ConfigurationField& field : ConfigurationFields()) {
    Require(EncodeCp949(read.*field.value).size() <= kWordBytes);
    complete &= !(read.*field.value).empty();
  }
  Require(SaveConfiguration(read, &files).ok());

  FuzzFiles savedFiles(files.written);
  Configuration again;
  Require(ReadConfiguration(&again, &savedFiles).ok());
  for (const ConfigurationField& field : ConfigurationFields()) {
    // After an empty value the reader takes the next key as the value.
    Require(!complete || again.*field.value == read.*field.value);
  }
  return 0;
}
