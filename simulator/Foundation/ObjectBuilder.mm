#import "Foundation/ObjectBuilder.h"

namespace sim {

namespace {

id newString(std::string_view text, bool isMutable) {
  const Class type = isMutable ? [NSMutableString class] : [NSString class];
  return [[type alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding];
}

/// The objects from `start` on, borrowed.
std::vector<id> borrowed(const std::vector<objcxx::Retained<NSObject>> &objects, std::size_t start) {
  std::vector<id> result;
  result.reserve(objects.size() - start);
  for (auto each = start; each < objects.size(); ++each) result.push_back(objects[each].get());
  return result;
}

}  // namespace

id ObjectBuilder::finished() {
  if (!open_.empty() || values_.size() != 1) return nil;
  return values_.front().autoreleased();
}

bool ObjectBuilder::push(id owned) {
  if (!owned) return false;
  values_.push_back(objcxx::adopt((NSObject *)owned));
  return true;
}

bool ObjectBuilder::begin() {
  open_.push_back({keys_.size(), values_.size()});
  return true;
}

bool ObjectBuilder::beginDictionary(std::size_t) { return begin(); }
bool ObjectBuilder::beginArray(std::size_t) { return begin(); }

bool ObjectBuilder::key(std::string_view text) {
  keys_.push_back(objcxx::adopt((NSObject *)newString(text, false)));
  return static_cast<bool>(keys_.back());
}

bool ObjectBuilder::endDictionary() {
  const auto frame = open_.back();
  open_.pop_back();
  const auto keys = borrowed(keys_, frame.keys), values = borrowed(values_, frame.values);
  const Class type = mutability_ == Mutability::immutable ? [NSDictionary class] : [NSMutableDictionary class];
  id dictionary = [[type alloc] initWithObjects:values.data() forKeys:keys.data() count:values.size()];
  keys_.resize(frame.keys);
  values_.resize(frame.values);
  return push(dictionary);
}

bool ObjectBuilder::endArray() {
  const auto frame = open_.back();
  open_.pop_back();
  const auto values = borrowed(values_, frame.values);
  const Class type = mutability_ == Mutability::immutable ? [NSArray class] : [NSMutableArray class];
  id array = [[type alloc] initWithObjects:values.data() count:values.size()];
  values_.resize(frame.values);
  return push(array);
}

bool ObjectBuilder::string(std::string_view text) {
  return push(newString(text, mutability_ == Mutability::containersAndLeaves));
}

bool ObjectBuilder::integer(std::int64_t value) { return push([[NSNumber alloc] initWithLongLong:value]); }

bool ObjectBuilder::unsignedInteger(std::uint64_t value) {
  return push([[NSNumber alloc] initWithUnsignedLongLong:value]);
}

bool ObjectBuilder::real(double value) { return push([[NSNumber alloc] initWithDouble:value]); }

bool ObjectBuilder::boolean(bool value) { return push([[NSNumber numberWithBool:value] retain]); }

bool ObjectBuilder::date(double seconds) {
  return push([[NSDate alloc] initWithTimeIntervalSinceReferenceDate:seconds]);
}

bool ObjectBuilder::data(std::span<const std::byte> bytes) {
  const Class type = mutability_ == Mutability::containersAndLeaves ? [NSMutableData class] : [NSData class];
  return push([[type alloc] initWithBytes:bytes.data() length:bytes.size()]);
}

bool ObjectBuilder::null() { return push([[NSNull null] retain]); }

}  // namespace sim
