#include "files/piece_chain.h"

namespace tarvelo {

void PieceChain::Begin(FileEntry& entry) {
  ++chain_;
  size_ = 0;
  seen_[entry.number] = chain_;
  entry.firstPiece = static_cast<std::uint32_t>(list_->pieces.size());
  entry.pieceCount = 0;
}

bool PieceChain::Add(FileEntry& entry, std::uint32_t record) {
  const Region bytes = InImage(image_, list_->records[record]);
  const bool isWhole = bytes.size == list_->records[record].size;
  if (!isWhole) Mark(entry, DamageUnreadable);
  if (!isWhole && bytes.size == 0) return false;
  size_ += bytes.size;
  if (limits_.pieces == 0 || size_ > limits_.fileSize) {
    Mark(entry, DamageCutOff);
    return false;
  }
  --limits_.pieces;
  if (list_->records[record].hasSecond) Mark(entry, DamageSecond);
  const bool isNowhere = bytes.size == 0 && bytes.offset >= std::ssize(image_);
  if (isNowhere) return true;
  list_->pieces.push_back(record);
  ++entry.pieceCount;
  return isWhole;
}

bool PieceChain::See(std::uint16_t number) {
  if (seen_[number] == chain_) return false;
  seen_[number] = chain_;
  return true;
}

}  // namespace tarvelo
