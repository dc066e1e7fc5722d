# Writes the tables of a 20-storey office building into the folder OUT: a tower of five by four bays with braces, a core of
# walls and slabs with an opening for the stairs, and a podium of three storeys as a second module. Lengths m, forces kN.
#
#     awk -v OUT=folder -f office_20_storeys.awk

function file(name) { return OUT "/" name ".csv" }
function table(name, header) { print header > file(name) }
function node_name(part, level, i, j) { return sprintf("%s%02d%s%d", part, level, substr("ABCDEFGHI", i, 1), j) }
function storey_name(part, level) { return level == 0 ? part "-BASE" : part "-" level "F" }

function nodes_of(part, level, first, last,    i, j) {
    for (i = first; i <= last; ++i)
        for (j = 1; j <= ROWS; ++j)
            printf "%s,%g,%g,%g,%s\n", node_name(part, level, i, j), X[i], Y[j], Z[level], storey_name(part, level) > file("nodes")
}
function line(kind, a, b, section, material, storey, behaviour) {
    ++members
    printf "%s%d,%s,%s,%s,%s,%s,%s,%s\n", toupper(substr(kind, 1, 1)), members, a, b, kind, section, material, behaviour, storey > file("members")
    return toupper(substr(kind, 1, 1)) members
}
function plate(name, kind, thickness, nodes, storey) {
    printf "%s,%s,%g,C30,%s,%s\n", name, kind, thickness, nodes, storey > file("surfaces")
}
function quad(part, level, i, j) {
    return node_name(part, level, i, j) ";" node_name(part, level, i + 1, j) ";" node_name(part, level, i + 1, j + 1) ";" node_name(part, level, i, j + 1)
}

function storey_of(part, level, first, last, height,    i, j, name, beam, slab, section) {
    name = storey_name(part, level)
    printf "%s,%g,%g,%s\n", name, Z[level], height, part == "T" ? "Tower" : "Podium" > file("storeys")
    nodes_of(part, level, first, last)
    for (i = first; i <= last; ++i)
        for (j = 1; j <= ROWS; ++j) {
            section = part == "P" ? "C2" : level <= 8 ? "C1" : "C2"
            line("column", node_name(part, level - 1, i, j), node_name(part, level, i, j), section, "SM355", name, "frame")
        }
    for (j = 1; j <= ROWS; ++j)
        for (i = first; i < last; ++i) {
            beam = line("beam", node_name(part, level, i, j), node_name(part, level, i + 1, j), "G1", "SM355", name, "frame")
            if (j == 1 || j == ROWS) printf "DL,%s,0,0,-7.5,global\n", beam > file("loads_member_uniform")
        }
    for (i = first; i <= last; ++i)
        for (j = 1; j < ROWS; ++j) {
            beam = line("beam", node_name(part, level, i, j), node_name(part, level, i, j + 1), "G2", "SM355", name, "frame")
            if (i == first || i == last) printf "DL,%s,0,0,-7.5,global\n", beam > file("loads_member_uniform")
        }
    for (i = first; i < last; ++i)
        for (j = 1; j < ROWS; ++j) {
            slab = sprintf("S%s%02d%s%d", part, level, substr("ABCDEFGHI", i, 1), j)
            plate(slab, "slab", 0.15, quad(part, level, i, j), name)
            printf "DL,%s,0,0,-1.5,global\nLL,%s,0,0,-%g,global\n", slab, slab, level == TOP[part] ? 1.0 : 2.5 > file("loads_area")
        }
}

function tower_storey(level,    name, a, b, i, j, corner, force) {
    name = storey_name("T", level)
    # Braces in the end frames, turned from storey to storey.
    for (i = 1; i <= 6; i += 5)
        for (j = 1; j < ROWS; j += 3) {
            a = node_name("T", level - 1, i, level % 2 ? j : j + 1)
            b = node_name("T", level, i, level % 2 ? j + 1 : j)
            line("brace", a, b, "B1", "SM355", name, "truss")
        }
    # The core: walls around the bay between the axes C and D, with stairs in its slab.
    split("3 2 4 2 4 3 3 3", corner, " ")
    for (i = 0; i < 4; ++i) {
        a = corner[2 * i + 1]; b = corner[2 * i + 2]
        plate(sprintf("W%02d%d", level, i + 1), "wall", 0.3, node_name("T", level - 1, a, b) ";" \
              node_name("T", level - 1, corner[2 * ((i + 1) % 4) + 1], corner[2 * ((i + 1) % 4) + 2]) ";" \
              node_name("T", level, corner[2 * ((i + 1) % 4) + 1], corner[2 * ((i + 1) % 4) + 2]) ";" node_name("T", level, a, b), name)
    }
    for (i = 1; i <= 4; ++i)
        printf "O%02d%d,%g,%g,%g,%s\n", level, i, X[3] + (i == 2 || i == 3 ? 5.5 : 1.5), Y[2] + (i > 2 ? 5.0 : 1.5), Z[level], name > file("nodes")
    printf "OP%02d,ST%02dC2,O%02d1;O%02d2;O%02d3;O%02d4\n", level, level, level, level, level, level > file("openings")
    diaphragm("T", level, 1, 6, "T%02dC3", 1250)
    force = 30 + 4.5 * level
    printf "WX,T%02dC3,%g,0,0,0,0,0\nWY,T%02dC3,0,%g,0,0,0,0\n", level, force, level, 1.25 * force > file("loads_nodal")
}
function diaphragm(part, level, first, last, form, mass,    i, j, master, slaves, node, wide, deep) {
    master = sprintf(form, level)
    for (i = first; i <= last; ++i)
        for (j = 1; j <= ROWS; ++j) {
            node = node_name(part, level, i, j)
            if (node != master) slaves = slaves (slaves == "" ? "" : ";") node
        }
    printf "D%s%02d,%s,rigid_xy,%s,%s\n", part, level, storey_name(part, level), master, slaves > file("diaphragms")
    wide = X[last] - X[first]; deep = Y[ROWS] - Y[1]
    printf "%s,%g,%g,0,0,0,%g\n", master, mass, mass, mass * (wide * wide + deep * deep) / 12 > file("masses")
}
function ground(part, first, last,    i, j) {
    printf "%s,0,0,%s\n", storey_name(part, 0), part == "T" ? "Tower" : "Podium" > file("storeys")
    nodes_of(part, 0, first, last)
    for (i = first; i <= last; ++i)
        for (j = 1; j <= ROWS; ++j) printf "%s,1,1,1,1,1,1\n", node_name(part, 0, i, j) > file("supports")
}

BEGIN {
    ROWS = 5; TOP["T"] = 20; TOP["P"] = 3
    for (i = 1; i <= 6; ++i) X[i] = 8 * (i - 1)
    X[7] = 48.3; X[8] = 56.3; X[9] = 64.3  # a joint of 0.3 m stands between the tower and the podium's columns
    for (j = 1; j <= ROWS; ++j) Y[j] = 7.5 * (j - 1)
    for (k = 1; k <= 20; ++k) Z[k] = 5.0 + 3.8 * (k - 1)
    Z[0] = 0

    table("materials", "material,type,E_MPa,poisson,density_kg_m3,thermal,grade")
    print "SM355,Steel,210000,0.3,7850,1.2e-05,SM355\nC30,Concrete,27537,0.18,2400,1e-05,C30" > file("materials")
    table("sections", "section,kind,profile,material")
    print "C1,Manufactured,H-458x417x30x50,SM355\nC2,Manufactured,H-400x400x13x21,SM355" > file("sections")
    print "G1,Manufactured,H-600x200x11x17,SM355\nG2,Manufactured,H-500x200x10x16,SM355\nB1,Manufactured,H-250x250x9x14,SM355" > file("sections")
    table("storeys", "storey,elevation_m,height_m,module")
    table("nodes", "node,x_m,y_m,z_m,storey")
    table("members", "member,node_i,node_j,kind,section,material,behaviour,storey")
    table("surfaces", "surface,kind,thickness_m,material,nodes,storey")
    table("openings", "opening,surface,nodes")
    table("supports", "node,ux,uy,uz,rx,ry,rz")
    table("masses", "node,mx_t,my_t,mz_t,Ixx_t_m2,Iyy_t_m2,Izz_t_m2")
    table("diaphragms", "diaphragm,storey,type,master_node,slave_nodes")
    table("load_cases", "load_case,type,source,self_weight_z,note")
    print "DL,Permanent,Self weight,-1,dead load\nLL,Variable,Imposed,,office floors and roof" > file("load_cases")
    print "WX,Variable,Wind,,wind along X\nWY,Variable,Wind,,wind along Y" > file("load_cases")
    table("combinations", "combination,type,note,factor_1,load_case_1,factor_2,load_case_2,factor_3,load_case_3")
    print "U1,Linear,gravity,1.2,DL,1.6,LL,,\nU2,Linear,wind X,1.2,DL,1,LL,1,WX\nU3,Linear,wind Y,1.2,DL,1,LL,1,WY" > file("combinations")
    table("loads_nodal", "load_case,node,Fx_kN,Fy_kN,Fz_kN,Mx_kNm,My_kNm,Mz_kNm")
    table("loads_member_uniform", "load_case,member,qx_kN_m,qy_kN_m,qz_kN_m,axes")
    table("loads_area", "load_case,surface,px_kN_m2,py_kN_m2,pz_kN_m2,axes")

    ground("T", 1, 6)
    for (k = 1; k <= TOP["T"]; ++k) {
        storey_of("T", k, 1, 6, Z[k] - Z[k - 1])
        tower_storey(k)
    }
    ground("P", 7, 9)
    for (k = 1; k <= TOP["P"]; ++k) {
        storey_of("P", k, 7, 9, Z[k] - Z[k - 1])
        diaphragm("P", k, 7, 9, "P%02dH3", 480)
    }
}
