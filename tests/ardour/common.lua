-- What every Ardour test script shares: the engine, the session with one stereo track
-- playing the test signal into the equaliser, and the results file. The driver
-- (ardour_host.py) passes everything through the environment and reads the results from
-- disk, because luasession may abort at exit after the work is done.

local env = os.getenv
kPresetId = "b7b7f2ce-ab9d-45e8-be9e-d44c022a7195" -- FloatWav.preset

local results = assert(io.open(env("ZT_RESULTS"), "w"))
function result(...)
	results:write(table.concat({...}, " "), "\n")
	results:flush()
end
-- Runs a script's work, then ends the session. luasession frees the session when it is
-- closed, so every Lua reference to the session's objects must be collected before:
-- the work keeps them in its own locals, gone once it returns. The driver counts a run
-- as complete only when the "done" line is there.
function run_and_finish(work)
	work()
	collectgarbage()
	result("done")
	results:close()
	close_session()
	quit()
end

function wait_for_processing()
	ARDOUR.LuaAPI.wait_for_process_callback(4, 2000)
end

function number(value)
	return string.format("%.9g", value)
end

local backend = assert(AudioEngine:set_backend("None (Dummy)", "", ""))
backend:set_buffer_size(tonumber(env("ZT_BLOCK")))

-- The edition under test: LXVST unless the driver asks for LV2.
equaliser_type = ARDOUR.PluginType[env("ZT_PLUGIN_TYPE") or "LXVST"]

function equaliser_id()
	for p in ARDOUR.LuaAPI.list_plugins():iter() do
		if p.type == equaliser_type and p.name == "Zephyra" then
			return p.unique_id
		end
	end
	error("Zephyra is not among Ardour's plug-ins")
end

-- Reads the raw little-endian float samples the driver wrote beside the WAV file into the
-- player's shared memory, which a session does not keep.
function load_signal(player)
	local bytes = ARDOUR.LuaAPI.file_get_contents(env("ZT_SIGNAL"))
	local count = #bytes // 4
	local shm = player:to_insert():plugin(0):to_luaproc():shmem()
	shm:allocate(count + 1)
	local data = shm:to_float(0):array()
	data[1] = count // 2
	for i = 1, count do
		data[i + 1] = string.unpack("<f", bytes, 4 * i - 3)
	end
	return count // 2
end

-- A new session whose track plays the test signal through the equaliser.
function new_equaliser_session()
	local session = assert(create_session(env("ZT_SESSION_DIR"), env("ZT_SESSION_NAME"), 48000))
	local track = session:new_audio_track(2, 2, nil, 1, "EQ", ARDOUR.PresentationInfo.max_order,
		ARDOUR.TrackMode.Normal, true):front()
	local player = ARDOUR.LuaAPI.new_luaproc(session, "Zephyra test player")
	assert(not player:isnil())
	track:add_processor_by_index(player, 0, nil, true)
	local equaliser = ARDOUR.LuaAPI.new_plugin(session, equaliser_id(), equaliser_type, "")
	assert(not equaliser:isnil())
	track:add_processor_by_index(equaliser, 1, nil, true)
	connect_to_master(session, track)
	signal_frames = load_signal(player)
	activate(player)
	activate(equaliser)
	return session, track, equaliser
end

-- New processors start inactive in a session without a GUI, and the route's own set-up
-- may switch one off again after it was switched on: wait for it to settle first.
function activate(processor)
	wait_for_processing()
	processor:activate()
	wait_for_processing()
	assert(processor:active(), processor:display_name() .. " stays inactive")
end

-- A new track's automatic connections come from a background thread, which may still
-- be at work: let it finish, then make the connections export and saved sessions need.
function connect_to_master(session, track)
	ARDOUR.LuaAPI.usleep(200000)
	local master = session:master_out()
	track:output():disconnect_all(nil)
	for c = 0, 1 do
		local port = track:output():audio(c)
		port:connect(master:input():audio(c):name())
		assert(port:connected_to(master:input():audio(c):name()), "track output to master")
	end
end

kept_exports = {}

-- Renders the signal's length from the session start as a 32-bit float WAV file.
function export_to(session, folder, name)
	local export = session:simple_export()
	export:set_range(0, signal_frames)
	assert(export:set_preset(kPresetId), "export preset")
	export:set_folder(folder)
	export:set_name(name)
	assert(export:run_export(), "export")
	-- Ardour 7.3 may free an export's port channels twice when the export object is
	-- collected (seen as glibc's "double free" in one run of five): keep it until
	-- the process ends, after the results are written.
	kept_exports[#kept_exports + 1] = export
end

-- The equaliser of a session saved by new_equaliser_session, ready to play again.
function reopened_session()
	local session = assert(load_session(env("ZT_SESSION_DIR"), env("ZT_SESSION_NAME")))
	local track = session:route_by_name("EQ")
	assert(not track:isnil(), "the track")
	local player = track:nth_plugin(0)
	signal_frames = load_signal(player)
	-- Ardour brings the Lua player back switched off.
	activate(player)
	local equaliser = track:nth_plugin(1)
	assert(equaliser:active(), "the equaliser is active again")
	return session, track, equaliser
end

-- Loads the preset Ardour lists under the label (a VST program, an LV2 preset).
function load_preset(equaliser, label)
	local plug = equaliser:to_insert():plugin(0)
	local preset = plug:preset_by_label(label)
	assert(preset, label .. " among Ardour's presets")
	assert(plug:load_preset(preset), label .. " loaded")
end

-- The equaliser's own value of a parameter.
function plugin_value(equaliser, index)
	return (ARDOUR.LuaAPI.get_processor_param(equaliser, index, true))
end

-- "INDEX=VALUE ..." from the environment: normalised values the driver took from the
-- plug-in itself.
function values_from(name)
	local values = {}
	for index, value in string.gmatch(env(name) or "", "(%d+)=(%S+)") do
		values[tonumber(index)] = tonumber(value)
	end
	return values
end

-- The point of Ardour's presented range for a control that means the normalised value.
function presented_point(equaliser, index, normalised)
	local plug = equaliser:to_insert():plugin(0)
	local _, out = plug:get_parameter_descriptor(index, ARDOUR.ParameterDescriptor())
	local descriptor = out[2]
	return descriptor.lower + normalised * (descriptor.upper - descriptor.lower)
end

function set_through_processor_param(equaliser, values)
	for index, value in pairs(values) do
		ARDOUR.LuaAPI.set_processor_param(equaliser, index, presented_point(equaliser, index, value))
	end
	wait_for_processing()
end

function report_values(tag, equaliser)
	local plug = equaliser:to_insert():plugin(0)
	for index = 0, plug:parameter_count() - 1 do
		result(tag, index, number(plugin_value(equaliser, index)))
	end
end
