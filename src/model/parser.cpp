#include "model/parser.h"

#include "model/conversational_parser.h"
#include "model/word_parser.h"

namespace tvx {

namespace {

template <typename Parser>
int ParseOneLine(const ParserContext& context, const NcLine& line) {
  Parser parser(context);
  const int result = parser.Parse(line);
  parser.Save();
  return result;
}

}  // namespace

int ParseWordLine(const ParserContext& context, const NcLine& line) {
  return ParseOneLine<WordParser>(context, line);
}

int ParseConversationalLine(const ParserContext& context, const NcLine& line) {
  return ParseOneLine<ConversationalParser>(context, line);
}

int ParseBlockLine(const ParserContext& context, const NcLine& line) {
  return IsConversational(context.job) ? ParseConversationalLine(context, line)
                                       : ParseWordLine(context, line);
}

bool IsConversational(JobRecord* job) {
  constexpr int32_t kConversationalType = 2;
  constexpr int32_t kWordAddressType = 1;
  if (job->InputFileType == kConversationalType) return true;
  job->InputFileType = kWordAddressType;
  return false;
}

}  // namespace tvx
