#include "forms/layout.h"

namespace tagrix {

Node Row(std::vector<Node> children) { return {Node::Kind::Row, std::move(children)}; }
Node Column(std::vector<Node> children) { return {Node::Kind::Column, std::move(children)}; }
Node Stack(std::vector<Node> children) { return {Node::Kind::Stack, std::move(children)}; }

}  // namespace tagrix
