// `brindle mesh`: triangulates points and draws the mesh.
#include <algorithm>
#include <set>
#include <utility>

#include "apps/cli/command.h"
#include "apps/cli/console.h"
#include "apps/cli/mesh_input.h"
#include "brindle/dxf/dxf.h"
#include "brindle/mesh/triangulation.h"
#include "brindle/platform/base/stream.h"

namespace brindle::cli {
namespace {

constexpr const wchar_t* kByLayer = L"BYLAYER";

using Side = std::pair<long, long>;

Side side_of(long a, long b) {
  return {std::min(a, b), std::max(a, b)};
}

void triangulate(const MeshInput& input, CGeoCDT& mesh) {
  for (const MeshInput::Point& point : input.points) mesh.Add_Vertex(point.x, point.y);
  for (const MeshInput::Edge& edge : input.edges) mesh.Add_Edge(edge.a, edge.b);
  mesh.Input_Boundary(static_cast<long>(input.boundary.size()), input.boundary.data());
  mesh.Generate();
}

void draw_line(DXF& drawing, double x1, double y1, double x2, double y2, const wchar_t* layer) {
  drawing.Write_Line(x1, y1, 0, x2, y2, 0, 1.0, layer, kByLayer, kByLayer);
}

// Each side of the mesh once, in the order of the triangles.
void draw_mesh(const CGeoCDT& mesh, DXF& drawing) {
  std::set<Side> drawn;
  for (const CGeoCDT::sTri& triangle : mesh.Triangles()) {
    for (int k = 0; k < 3; ++k) {
      const long a = triangle.v[k], b = triangle.v[(k + 1) % 3];
      if (!drawn.insert(side_of(a, b)).second) continue;
      const CGeoCDT::sVertex& p = *mesh.WorkingVertices()[static_cast<std::size_t>(a)];
      const CGeoCDT::sVertex& q = *mesh.WorkingVertices()[static_cast<std::size_t>(b)];
      draw_line(drawing, p.x, p.y, q.x, q.y, L"MESH");
    }
  }
}

void draw_input(const MeshInput& input, DXF& drawing) {
  auto draw = [&](long a, long b, const wchar_t* layer) {
    const MeshInput::Point& p = input.points[static_cast<std::size_t>(a)];
    const MeshInput::Point& q = input.points[static_cast<std::size_t>(b)];
    draw_line(drawing, p.x, p.y, q.x, q.y, layer);
  };
  for (const MeshInput::Edge& edge : input.edges) draw(edge.a, edge.b, L"CONSTRAINT");
  for (std::size_t i = 0; i < input.boundary.size(); ++i) {
    draw(input.boundary[i], input.boundary[(i + 1) % input.boundary.size()], L"BOUNDARY");
  }
}

ExitStatus run_mesh(const Arguments& arguments) {
  MeshInput input;
  if (!read_mesh_input(from_path(arguments.operands[0]), input)) return kBadInput;
  CGeoCDT mesh;
  triangulate(input, mesh);
  DXF drawing;
  drawing.New_MemDxf();
  drawing.Add_Layer(L"MESH", 8, L"CONTINUOUS");
  drawing.Add_Layer(L"CONSTRAINT", 1, L"CONTINUOUS");
  drawing.Add_Layer(L"BOUNDARY", 3, L"CONTINUOUS");
  draw_mesh(mesh, drawing);
  draw_input(input, drawing);
  const std::wstring out = from_path(arguments.operands[1]);
  if (drawing.Write_MemDxf_To_File2000(out.c_str()) == 0) {
    complain(L"can't write " + printable(out));
    return kBadInput;
  }
  print(L"points %lld, with those that the mesh adds %lld",
        static_cast<long long>(input.points.size()),
        static_cast<long long>(mesh.WorkingVertices().size()));
  print(L"triangles %ld", mesh.NumOfTriangels());
  return kDone;
}

}  // namespace

const Command kMeshCommand = {
    "mesh",
    {"POINTS.txt", "OUT.dxf"},
    "",
    "triangulate points, with constraint edges and a boundary",
    "POINTS.txt has the sections \"POINTS n\" with n lines \"number, x, y\", \"EDGES n\" with "
    "lines\n"
    "\"number, a, b\" and \"BOUNDARY n\" with lines \"number, point\"; ## begins a comment. The "
    "drawing has\n"
    "each side of the mesh as a line, and the edges and the boundary on layers of their own.",
    {},
    run_mesh,
};

}  // namespace brindle::cli
