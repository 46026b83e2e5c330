// Display options: use of the quad tree and levels of detail.
#pragma once

namespace brindle {

// Read by drawing and picking; nothing in the library changes them. The order of the members is
// part of the interface.
class CQXCADPlatOption {
 public:
  int m_bQuadTreeHitTest = 1;  // picking uses the tree when one exists
  int m_nQuadTreeDepth = 10;
  float m_fQuadTreeRatio = 0.2f;  // margin of a node against its size
  int m_nLodBoxPixels = 5;        // texts and circles: a box at this size or below
  int m_nLodDotPixels = 2;        // texts, circles, lines: a dot or nothing at this size or below
  int m_bLodText = 0;             // switches of the rules above, for each kind
  int m_bLodCircle = 0;
  int m_bLodLine = 0;
  int m_nReserved[4] = {1, 0, 1, 1};
  int m_bLodQuadNode = 0;       // switch of the rules for nodes
  int m_nLodNodeBoxPixels = 8;  // a rectangle for a node of this size or below
  int m_nLodNodeDotPixels = 2;  // nothing for a node of this size or below
  int m_nQuadTreeMargin = 30;   // the device rectangle shrinks by this before the search
};

extern CQXCADPlatOption G_cCADPlatOption;

}  // namespace brindle
