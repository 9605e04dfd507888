// The archive is built in a source of libzip that grows in memory, and is read back from there.
#include "reports/zip_archive.h"

#include <zip.h>

#include <cerrno>
#include <memory>
#include <utility>

namespace tvx {

namespace {

using Source = std::unique_ptr<zip_source_t, decltype(&zip_source_free)>;

Status FailureOf(const zip_error_t* error) {
  const int system = zip_error_code_system(error);
  int reason = zip_error_system_type(error) == ZIP_ET_SYS && system != 0 ? system : EIO;
  if (zip_error_code_zip(error) == ZIP_ER_MEMORY) reason = ENOMEM;
  return {StatusKind::kWriteFailed, "", reason};
}

// The archive holds the bytes only by reference until it is closed.
bool Add(const ZipMember& member, zip_t* archive) {
  constexpr zip_uint16_t kFirstDate = 1 << 5 | 1;  // 1980-01-01, the earliest of the format
  Source source(zip_source_buffer(archive, member.bytes.data(), member.bytes.size(), 0),
                zip_source_free);
  if (source == nullptr) return false;
  const zip_int64_t index =
      zip_file_add(archive, member.name.c_str(), source.get(), ZIP_FL_ENC_UTF_8);
  if (index < 0) return false;
  source.release();  // owned by the archive
  const auto added = static_cast<zip_uint64_t>(index);
  const zip_int32_t method = member.isCompressed ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
  return zip_set_file_compression(archive, added, method, 0) == 0 &&
         zip_file_set_dostime(archive, added, 0, kFirstDate, 0) == 0;
}

Result<std::string> ReadAll(zip_source_t* source) {
  const auto failure = [source] { return FailureOf(zip_source_error(source)); };
  zip_stat_t status;
  if (zip_source_stat(source, &status) != 0 || zip_source_open(source) != 0) return failure();
  std::string bytes(status.size, '\0');
  const zip_int64_t count = zip_source_read(source, bytes.data(), bytes.size());
  zip_source_close(source);
  if (count != static_cast<zip_int64_t>(bytes.size())) return failure();
  return bytes;
}

}  // namespace

Result<std::string> PackZip(const std::vector<ZipMember>& members) {
  zip_error_t error;
  zip_error_init(&error);
  const Source buffer(zip_source_buffer_create(nullptr, 0, 0, &error), zip_source_free);
  if (buffer == nullptr) return FailureOf(&error);
  zip_source_keep(buffer.get());  // the archive releases its reference when it is closed
  zip_t* const zip = zip_open_from_source(buffer.get(), ZIP_CREATE | ZIP_TRUNCATE, &error);
  if (zip == nullptr) {
    zip_source_free(buffer.get());
    return FailureOf(&error);
  }
  bool good = true;
  for (const ZipMember& member : members) good = good && Add(member, zip);
  if (!good || zip_close(zip) != 0) {
    Status failure = FailureOf(zip_get_error(zip));
    zip_discard(zip);
    return failure;
  }
  return ReadAll(buffer.get());
}

}  // namespace tvx
