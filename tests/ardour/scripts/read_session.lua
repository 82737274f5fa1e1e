-- Usage: read_session.lua FOLDER SNAPSHOT [SAVE_AS]
-- Opens a saved session and prints the parameters of the first plug-in on the
-- track "Ombro" as "parameters N" and "parameter I VALUE" lines; with SAVE_AS
-- the session is then saved again under that snapshot name.
ARDOUR.config():set_hide_dummy_backend(false)
local folder, snapshot, save_as = arg[1], arg[2], arg[3]
assert(load_session(folder, snapshot), "cannot open the session")

local track = Session:route_by_name("Ombro")
assert(not track:isnil(), "no track Ombro")
local insert = track:nth_plugin(0)
assert(not insert:isnil(), "no plug-in on the track")
local plugin = insert:to_insert():plugin(0)

local count = plugin:parameter_count()
print(string.format("parameters %d", count))
for i = 0, count - 1 do
    local value, ok = ARDOUR.LuaAPI.get_processor_param(insert, i, true)
    assert(ok, "cannot read parameter " .. i)
    print(string.format("parameter %d %.9g", i, value))
end

if save_as and save_as ~= "" then
    assert(Session:save_state(save_as, false, false, false, false, false) == 0, "cannot save")
    print("saved " .. save_as)
end
close_session()
