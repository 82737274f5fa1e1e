-- Usage: create_session.lua FOLDER SNAPSHOT PLUGIN
-- A 48 kHz session on the dummy backend with one stereo track named "Ombro"
-- holding the Linux VST plug-in PLUGIN (found by name in the scanned cache),
-- saved and closed.
ARDOUR.config():set_hide_dummy_backend(false)
local folder, snapshot, plugin_name = arg[1], arg[2], arg[3]
assert(create_session(folder, snapshot, 48000), "cannot create the session")

local tracks = Session:new_audio_track(2, 2, nil, 1, "Ombro",
    ARDOUR.PresentationInfo.max_order, ARDOUR.TrackMode.Normal, true)
assert(tracks:size() == 1, "cannot add the track")
local track = tracks:front()

-- Ardour connects a new track in a thread of its own, which under load may
-- not have run before the session is saved: the outputs are joined to the
-- master bus here.
local outputs, master = track:output(), Session:master_out():input()
for channel = 0, 1 do
    local port, master_port = outputs:audio(channel), master:audio(channel):name()
    if not port:connected_to(master_port) then
        assert(outputs:connect(port, master_port, nil) == 0, "cannot connect " .. port:name())
    end
end

local plugin = ARDOUR.LuaAPI.new_plugin(Session, plugin_name, ARDOUR.PluginType.LXVST, "")
assert(not plugin:isnil(), "plug-in not found: " .. plugin_name)
assert(track:add_processor_by_index(plugin, 0, nil, true) == 0, "cannot insert the plug-in")

assert(Session:save_state("", false, false, false, false, false) == 0, "cannot save")
print("created " .. snapshot)
close_session()
